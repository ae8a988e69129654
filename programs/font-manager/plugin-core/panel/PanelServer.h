#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <string>
#include <vector>

#include "plugin-core/panel/PanelBudget.h"
#include "plugin-core/panel/PanelClient.h"
#include "plugin-core/panel/PanelQueue.h"
#include "plugin-core/panel/PanelSocket.h"

namespace plugincore {

// The panel's socket and its clients. Non-blocking: Serve moves bytes between the sockets and the
// queue of requests, and its budget bounds the time of one call, whatever the clients do.
// [main-thread]
class PanelServer {
public:
    // Returns milliseconds of a clock that is never set back.
    using Clock = std::function<int64_t()>;

    // Opens the socket. The queue has to outlive this object. Throws Failure.
    PanelServer(PanelQueue& queue, std::string token, Clock clock = GetSteadyMilliseconds);

    uint16_t GetPort() const { return mListener.GetPort(); }
    size_t GetClientCount() const { return mClients.size(); }

    // Accepts at least one new client, performs a step of at least one client, then more of both
    // until the budget is spent, and exchanges requests for answers with the queue. The next call
    // continues with the next client. Costs one system call if there are no clients. Throws
    // Failure.
    void Serve(const PanelBudget& budget);

    // Reports to the subscribers that the libraries or the selection have changed.
    void AnnounceLibraryChange();

private:
    static int64_t GetSteadyMilliseconds();

    void AcceptClients(const PanelBudget& budget, int64_t now);
    bool MakeRoom();
    void ExchangeWithQueue();
    void LookForChanges();
    void StepClients(const PanelBudget& budget, int64_t now);
    bool HasSubscribers() const;
    void SendEvent(const PanelLine& event);

    PanelQueue& mQueue;
    std::string mToken;
    Clock mClock;
    PanelListener mListener;
    std::list<PanelClient> mClients;  // the oldest first
    uint64_t mLastNumber = 0;         // of a client
    uint64_t mNextStep = 0;           // the first client from this number on is the next to step
    std::vector<PanelQueue::Request> mRequests;  // for the queue
    bool mIsLooking = false;                     // a look for changes is in the queue
};

}  // namespace plugincore
