#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <string>

#include "plugin-core/panel/PanelClient.h"
#include "plugin-core/panel/PanelProtocol.h"
#include "plugin-core/panel/PanelSocket.h"

namespace plugincore {

// The panel's socket and its clients. Non-blocking: Serve does all the work, and PanelLimits bounds
// the work of one call, whatever the clients send. [main-thread]
class PanelServer {
public:
    // Returns milliseconds of a clock that is never set back.
    using Clock = std::function<int64_t()>;

    // Opens the socket. The protocol has to outlive this object. Throws Failure.
    PanelServer(PanelProtocol& protocol, std::string token, Clock clock = GetSteadyMilliseconds);

    uint16_t GetPort() const { return mListener.GetPort(); }
    size_t GetClientCount() const { return mClients.size(); }

    // Serves all clients once. Costs one system call if there are none. Throws Failure.
    void Serve();

private:
    static int64_t GetSteadyMilliseconds();

    void AcceptClients(int64_t now);
    bool MakeRoom();
    void SendEvents();
    void CountSubscribers();

    PanelProtocol& mProtocol;
    std::string mToken;
    Clock mClock;
    PanelListener mListener;
    std::list<PanelClient> mClients;  // the oldest first
    bool mHasSubscribers = false;
};

}  // namespace plugincore
