#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <string>

#include "plugin-core/panel/PanelBudget.h"
#include "plugin-core/panel/PanelClient.h"
#include "plugin-core/panel/PanelQueue.h"
#include "plugin-core/panel/PanelSocket.h"

namespace plugincore {

// The panel's port and its clients. Non-blocking: Serve moves bytes between the sockets and the
// queue of requests, and its budget bounds the time of one call, whatever the clients do.
// [main-thread]
class PanelServer {
public:
    // Returns milliseconds of a clock that is never set back.
    using Clock = std::function<int64_t()>;

    // Opens the socket, on `port` if that is possible (see PanelListener). The queue has to outlive
    // this object. Throws Failure.
    PanelServer(PanelQueue& queue, std::string token, Clock clock = GetSteadyMilliseconds,
                uint16_t port = 0);

    // The same on the port of the last time, which the database keeps.
    PanelServer(PanelQueue& queue, std::string token, Database& database);

    uint16_t GetPort() const { return mListener.GetPort(); }
    size_t GetClientCount() const { return mClients.size(); }

    // Accepts at least one new client, performs at least one step of the clients, then more of both
    // until the budget is spent, and exchanges requests for answers with the queue. The next call
    // continues with the next step. Costs one system call if there are no clients. Throws Failure.
    void Serve(const PanelBudget& budget);

private:
    static int64_t GetSteadyMilliseconds();

    void AcceptClients(const PanelBudget& budget);
    bool MakeRoom();
    void ExchangeWithQueue();
    void LookForChanges();
    void DeleteGoneClients();
    void Step(const PanelBudget& budget);
    bool HasSubscribers() const;
    void SendEvent(const PanelMessage& event);

    PanelQueue& mQueue;
    Clock mClock;
    PanelListener mListener;
    PanelContext mContext;
    PanelLoop mLoop;
    std::list<PanelClient> mClients;  // the oldest first
    uint64_t mLastNumber = 0;         // of a client
    bool mIsLooking = false;          // a look for changes is in the queue
    bool mMayHaveSteps = false;       // operations of deleted clients may not have ended
};

}  // namespace plugincore
