#pragma once

#include <deque>
#include <functional>
#include <string>

#include "plugin-core/panel/PanelQueue.h"
#include "plugin-core/panel/PanelSocket.h"

namespace plugincore {

// One client of the panel's socket. Its first line must present the token; then its requests are
// served one after the other. Any violation of the protocol closes the connection after a last
// line. Non-blocking.
class PanelClient {
public:
    // `number` identifies the client. `now` is the time in milliseconds of the server's clock, here
    // and below.
    PanelClient(PanelConnection connection, uint64_t number, int64_t now);

    // Queues a request, whose answer arrives by Answer. The line has no line feed.
    using Submit = std::function<void(std::string line)>;

    // Receives, reads one line and sends as much as is possible now, within the limits of one step.
    // Returns false if the caller has to delete this client.
    bool Step(const std::string& token, const Submit& submit, int64_t now);

    // Queues the answer to the request that was submitted last.
    void Answer(const PanelLine& line, bool subscribes);

    // Queues a line, which Step sends.
    void Queue(const PanelLine& line);

    // Sends the refusal, as far as that is possible without waiting. The caller has to delete this
    // client then.
    void Reject();

    uint64_t GetNumber() const { return mNumber; }
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
    void QueueText(std::string text);
    void Authenticate(const std::string& token, int64_t now);
    void SubmitRequest(const Submit& submit, int64_t now);
    void Refuse(const std::string& error, int64_t now);
    void Leave();
    void Flush();

    PanelConnection mConnection;
    uint64_t mNumber;
    Phase mPhase = Phase::kNew;
    bool mSubscribed = false;
    bool mIsAwaitingAnswer = false;
    bool mInputEnded = false;
    bool mOutputEnded = false;
    int64_t mSince;  // start of the time that the phase may take
    size_t mDiscarded = 0;
    std::string mInput;
    std::deque<PanelLine> mOutput;
    size_t mOutputBytes = 0;  // not sent yet
    size_t mSent = 0;         // bytes of the first line
};

}  // namespace plugincore
