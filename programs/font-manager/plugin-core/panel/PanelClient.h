#pragma once

#include <functional>
#include <string>

#include "plugin-core/panel/PanelProtocol.h"
#include "plugin-core/panel/PanelSocket.h"

namespace plugincore {

// One client of the panel's socket. Its first line must present the token; then its requests are
// served. Any violation of the protocol closes the connection after a last line. Non-blocking.
class PanelClient {
public:
    // `now` is the time in milliseconds of the server's clock, here and below.
    PanelClient(PanelConnection connection, int64_t now);

    // Serves one request. The line has no line feed.
    using Serve = std::function<PanelProtocol::Answer(const std::string& line)>;

    // Receives, serves and sends as much as is possible now, within the limits of one tick. Returns
    // false if the caller has to delete this client.
    bool Step(const std::string& token, const Serve& serve, int64_t now);

    // Queues a line, which Step sends.
    void Queue(const std::string& line);

    // Sends the refusal, as far as that is possible without waiting. The caller has to delete this
    // client then.
    void Reject();

    bool HasToken() const { return mPhase == Phase::kServed; }
    bool IsSubscriber() const { return HasToken() && mSubscribed; }

private:
    enum class Phase {
        kNew,      // hasn't presented the token
        kServed,   // its requests are served
        kLeaving,  // receives its last line; its input is discarded
        kGone,     // closed, or about to be
    };

    bool TakeLine(std::string& line);
    void Authenticate(const std::string& token, int64_t now);
    void ServeRequests(const Serve& serve, int64_t now);
    void Refuse(const std::string& error, int64_t now);
    void Leave();
    void Flush();

    PanelConnection mConnection;
    Phase mPhase = Phase::kNew;
    bool mSubscribed = false;
    bool mInputEnded = false;
    bool mOutputEnded = false;
    int64_t mSince;  // start of the time that the phase may take
    size_t mDiscarded = 0;
    std::string mInput;
    std::string mOutput;
};

}  // namespace plugincore
