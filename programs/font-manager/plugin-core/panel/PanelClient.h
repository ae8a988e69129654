#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/FileDescriptor.h"
#include "plugin-core/panel/PanelQueue.h"

namespace plugincore {

// What the clients of one server share.
struct PanelContext {
    uint16_t port = 0;
    std::string token;
    int64_t now = 0;                            // milliseconds of the server's clock
    std::vector<PanelQueue::Request> requests;  // for the queue; clients append theirs
};

// Performs the operations of all clients, step by step. A step takes some microseconds and moves
// the bytes of PanelLimits at most. Non-blocking.
class PanelLoop {
public:
    PanelLoop();
    ~PanelLoop();
    PanelLoop(const PanelLoop&) = delete;
    PanelLoop& operator=(const PanelLoop&) = delete;

    // Performs one step. Returns false if none is possible now.
    bool Step();

private:
    friend class PanelClient;
    struct State;
    std::unique_ptr<State> mState;
};

// One connection to the panel's port: an HTTP request with its answer, or a WebSocket, whose first
// message must present the token; then its requests are served one after the other. Any violation
// of the protocol closes the connection. Non-blocking: PanelLoop::Step does the work.
class PanelClient {
public:
    // `number` identifies the client. Loop and context have to outlive this object.
    PanelClient(PanelLoop& loop, PanelContext& context, base::FileDescriptor socket,
                uint64_t number);

    // Closes the connection.
    ~PanelClient();
    PanelClient(PanelClient&&) noexcept;
    PanelClient& operator=(PanelClient&&) = delete;

    // Queues the answer to the request that the client submitted last.
    void Answer(const PanelQueue::Result& result);

    // Queues a message.
    void Queue(const PanelMessage& message);

    // Refuses the client, as far as that is possible without waiting. The caller has to delete this
    // object then.
    void Reject();

    // Closes the connection if a time limit has passed. Returns false if the connection is closed
    // and the caller has to delete this object.
    bool CheckTime();

    uint64_t GetNumber() const;
    bool HasToken() const;
    bool IsSubscriber() const;

private:
    class Session;
    std::shared_ptr<Session> mSession;
};

}  // namespace plugincore
