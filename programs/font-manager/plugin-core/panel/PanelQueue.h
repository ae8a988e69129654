#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "plugin-core/panel/PanelFontFile.h"
#include "plugin-core/panel/PanelProtocol.h"

namespace plugincore {

// Bytes to send, shared by all clients that receive them: a message, or a part of an HTTP answer.
using PanelMessage = std::shared_ptr<const std::string>;

// The requests that wait to be served and the answers that wait to be sent. A tick of the host only
// puts requests in and takes answers out. ServeNext, which reads the database, fontconfig and font
// files, runs in another thread (PanelWorker). Requests are served in their order.
// Thread-safe.
class PanelQueue {
public:
    // Only ServeNext uses the protocol, which has to outlive this object.
    explicit PanelQueue(PanelProtocol& protocol) : mProtocol(protocol) {}

    struct Result {
        uint64_t client = 0;  // as in the request
        PanelMessage answer;  // null for client 0 and for fonts
        std::shared_ptr<PanelFontPiece> font;
        bool subscribes = false;           // the client receives events that come after this result
        std::vector<PanelMessage> events;  // for the clients that subscribed before this result
        std::string failure;               // why changes couldn't be looked for; otherwise ""
    };

    struct Request {
        uint64_t client = 0;  // identifies the client; 0 asks for a look for events
        std::string text;     // the message, or the id of the font
        bool isFont = false;  // asks for a piece of a font file, from `offset` on
        uint64_t offset = 0;
    };

    // Queues the requests and empties `requests`. Returns the results since the last call. Never
    // waits: if another thread uses the queue just now, nothing happens until the next call.
    std::vector<Result> Exchange(std::vector<Request>& requests);

    // Serves the first request that waits. Returns false if none does. Throws nothing.
    bool ServeNext();

    // Waits for a request, or for Stop. Returns false after Stop.
    bool WaitForRequest();

    // Makes WaitForRequest return false, and drops the requests that wait.
    void Stop();

private:
    void Serve(const Request& request, Result& result);
    void LookForEvents(Result& result);

    PanelProtocol& mProtocol;
    std::mutex mMutex;
    std::condition_variable mArrived;
    bool mIsStopped = false;
    std::deque<Request> mRequests;
    std::vector<Result> mResults;
};

}  // namespace plugincore
