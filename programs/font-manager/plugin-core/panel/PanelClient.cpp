#include "plugin-core/panel/PanelClient.h"

#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/panel/PanelToken.h"

using nlohmann::json;

namespace plugincore {
namespace {

constexpr const char* kWelcome = "{\"ok\":true,\"protocol\":1}";
constexpr const char* kRefusal = "refused";

bool PresentsToken(const std::string& line, const std::string& token)
{
    const json value = json::parse(line, nullptr, false);
    if (!value.is_object()) return false;
    const auto member = value.find("token");
    return member != value.end() && member->is_string() &&
           IsSameToken(member->get<std::string>(), token);
}

}  // namespace

PanelClient::PanelClient(PanelConnection connection, uint64_t number, int64_t now)
    : mConnection(std::move(connection)), mNumber(number), mSince(now)
{
}

void PanelClient::Queue(const PanelLine& line)
{
    if (mPhase == Phase::kGone) return;
    mOutput.push_back(line);
    mOutputBytes += line->size();
    if (mOutputBytes > PanelLimits::kOutput) mPhase = Phase::kGone;
}

void PanelClient::QueueText(std::string text)
{
    text += '\n';
    Queue(std::make_shared<const std::string>(std::move(text)));
}

void PanelClient::Answer(const PanelLine& line, bool subscribes)
{
    mIsAwaitingAnswer = false;
    mSubscribed = mSubscribed || subscribes;
    Queue(line);
}

void PanelClient::Refuse(const std::string& error, int64_t now)
{
    QueueText(base::PrintJson(json::object({{"ok", false}, {"error", error}})));
    mPhase = Phase::kLeaving;
    mSince = now;
    mInput.clear();
}

void PanelClient::Reject()
{
    Refuse(kRefusal, mSince);
    Flush();
}

bool PanelClient::TakeLine(std::string& line)
{
    const size_t end = mInput.find('\n');
    if (end == std::string::npos) return false;
    line = mInput.substr(0, end);
    mInput.erase(0, end + 1);
    return true;
}

void PanelClient::Authenticate(const std::string& token, int64_t now)
{
    const size_t end = mInput.find('\n');
    const bool isTooLong = std::min(end, mInput.size()) > PanelLimits::kFirstLine;
    const bool isTooLate = now - mSince >= PanelLimits::kTokenMilliseconds;
    const bool hasNoLine = end == std::string::npos;
    if (hasNoLine && !isTooLong && !isTooLate && !mInputEnded) return;
    std::string line;
    if (!isTooLong && TakeLine(line) && PresentsToken(line, token)) {
        mPhase = Phase::kServed;
        QueueText(kWelcome);
        return;
    }
    Refuse(kRefusal, now);
}

void PanelClient::SubmitRequest(const Submit& submit, int64_t now)
{
    if (mIsAwaitingAnswer || mOutputBytes > PanelLimits::kBusyOutput) return;
    const size_t end = mInput.find('\n');
    if (std::min(end, mInput.size()) > PanelLimits::kLine) {
        Refuse("the line is too long", now);
        return;
    }
    std::string line;
    if (TakeLine(line)) {
        mIsAwaitingAnswer = true;
        submit(std::move(line));
        return;
    }
    // A client may close its side after its last request and still receive all answers.
    if (mInputEnded) mPhase = Phase::kLeaving;
}

void PanelClient::Flush()
{
    for (size_t rest = PanelLimits::kSentInAStep; rest > 0 && !mOutput.empty();) {
        const std::string& line = *mOutput.front();
        const size_t size = std::min(rest, line.size() - mSent);
        size_t sent = 0;
        if (mConnection.Send(line.data() + mSent, size, sent) == PanelConnection::State::kEnded) {
            mPhase = Phase::kGone;
        }
        mSent += sent;
        mOutputBytes -= sent;
        rest -= sent;
        if (sent < size) return;
        if (mSent < line.size()) continue;
        mOutput.pop_front();
        mSent = 0;
    }
}

// Waits for the client to close its side: if a connection is closed while input is unread, TCP
// resets it and the client may lose the last line. Step limits the time and PanelLimits the bytes.
void PanelClient::Leave()
{
    if (mPhase != Phase::kLeaving || !mOutput.empty()) return;
    if (!mOutputEnded) mConnection.EndOutput();
    mOutputEnded = true;
    if (mInputEnded || mDiscarded > PanelLimits::kDiscarded) mPhase = Phase::kGone;
}

bool PanelClient::Step(const std::string& token, const Submit& submit, int64_t now)
{
    if (mPhase != Phase::kGone && !mInputEnded && mInput.size() <= PanelLimits::kLine) {
        mInputEnded = mConnection.Receive(mInput, PanelLimits::kReadInAStep) ==
                      PanelConnection::State::kEnded;
    }
    if (mPhase == Phase::kNew) Authenticate(token, now);
    if (mPhase == Phase::kServed) SubmitRequest(submit, now);
    if (mPhase == Phase::kLeaving) {
        mDiscarded += mInput.size();
        mInput.clear();
    }
    if (mPhase != Phase::kGone) Flush();
    Leave();
    if (mPhase == Phase::kLeaving && now - mSince >= PanelLimits::kFarewellMilliseconds) {
        mPhase = Phase::kGone;
    }
    return mPhase != Phase::kGone;
}

}  // namespace plugincore
