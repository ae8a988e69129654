#pragma once

#include <functional>
#include <string>

#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/panel/PanelProtocol.h"
#include "plugin-core/panel/PanelSocket.h"

namespace plugincore {

// One client of the panel's socket: first it has to present the token, then its requests are
// served; if it does anything else it is refused, which ends it. Nothing here waits.
class PanelClient {
public:
    // `now` in milliseconds of the server's clock.
    PanelClient(PanelConnection connection, int64_t now);

    // Serves a line; tells whether the client is to be told of changes from now on.
    using Serve = std::function<PanelProtocol::Answer(const std::string& line)>;

    // Takes in, serves and gives out what can be at this moment, within the limits of one tick.
    // False if the client is done with and to be dropped.
    bool Step(const std::string& token, const Serve& serve, int64_t now);

    // Queues a line that nobody asked for.
    void Queue(const std::string& line);

    // Sends a last line, as far as it goes out at once. The client is to be dropped then.
    void Reject();

    bool HasToken() const { return mPhase == Phase::kServed; }
    bool IsSubscriber() const { return HasToken() && mSubscribed; }

private:
    enum class Phase {
        kStranger,  // no token yet
        kServed,
        kLeaving,  // its last line is on its way; what it sends is thrown away
        kGone,
    };

    bool TakeLine(std::string& line);
    void Authenticate(const std::string& token, int64_t now);
    void ServeRequests(const Serve& serve, int64_t now);
    void Refuse(const std::string& error, int64_t now);
    void Leave();
    void Flush();

    PanelConnection mConnection;
    Phase mPhase = Phase::kStranger;
    bool mSubscribed = false;
    bool mInputEnded = false;
    bool mOutputEnded = false;
    int64_t mSince;  // when the phase began
    size_t mDiscarded = 0;
    std::string mInput;
    std::string mOutput;
};

}  // namespace plugincore
