#include "plugin-core/panel/PanelServer.h"

#include <algorithm>
#include <chrono>

#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/storage/Failure.h"

namespace plugincore {

PanelServer::PanelServer(PanelQueue& queue, std::string token, Clock clock)
    : mQueue(queue), mToken(std::move(token)), mClock(std::move(clock))
{
}

int64_t PanelServer::GetSteadyMilliseconds()
{
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<milliseconds>(now).count();
}

// Rejects the oldest client without a token in favour of a new one: otherwise clients that do
// nothing could occupy all places and lock the panel out.
bool PanelServer::MakeRoom()
{
    if (mClients.size() < PanelLimits::kClients) return true;
    const auto oldest = std::find_if(mClients.begin(), mClients.end(),
                                     [](const PanelClient& client) { return !client.HasToken(); });
    if (oldest == mClients.end()) return false;
    oldest->Reject();
    mClients.erase(oldest);
    return true;
}

void PanelServer::AcceptClients(const PanelBudget& budget, int64_t now)
{
    for (size_t accepted = 0; accepted < PanelLimits::kNewClientsInATick; ++accepted) {
        if (accepted > 0 && budget.IsSpent()) return;
        std::optional<PanelConnection> connection = mListener.Accept();
        if (!connection) return;
        PanelClient client(*std::move(connection), ++mLastNumber, now);
        if (MakeRoom()) {
            mClients.push_back(std::move(client));
        } else {
            client.Reject();
        }
    }
}

bool PanelServer::HasSubscribers() const
{
    return std::any_of(mClients.begin(), mClients.end(),
                       [](const PanelClient& client) { return client.IsSubscriber(); });
}

void PanelServer::SendEvent(const PanelLine& event)
{
    for (PanelClient& client : mClients) {
        if (client.IsSubscriber()) client.Queue(event);
    }
}

void PanelServer::AnnounceLibraryChange()
{
    SendEvent(std::make_shared<const std::string>("{\"event\":\"libraries\"}\n"));
}

void PanelServer::ExchangeWithQueue()
{
    std::string failure;
    for (const PanelQueue::Result& result : mQueue.Exchange(mRequests)) {
        for (const PanelLine& event : result.events) SendEvent(event);
        if (!result.failure.empty()) failure = result.failure;
        if (result.client == 0) mIsLooking = false;
        const auto client = std::find_if(
            mClients.begin(), mClients.end(),
            [&result](const PanelClient& each) { return each.GetNumber() == result.client; });
        if (client != mClients.end()) client->Answer(result.answer, result.subscribes);
    }
    if (!failure.empty()) throw Failure(StatusCodes::kDatabaseError, failure);
}

void PanelServer::LookForChanges()
{
    if (mIsLooking || !HasSubscribers()) return;
    mIsLooking = true;
    mRequests.push_back({});
}

void PanelServer::StepClients(const PanelBudget& budget, int64_t now)
{
    // The clients are in the order of their numbers: from the next one to the end, then the others.
    auto client = std::find_if(mClients.begin(), mClients.end(), [this](const PanelClient& each) {
        return each.GetNumber() >= mNextStep;
    });
    for (size_t rest = mClients.size(); rest > 0; --rest) {
        if (client == mClients.end()) client = mClients.begin();
        const uint64_t number = client->GetNumber();
        const auto submit = [this, number](std::string line) {
            mRequests.push_back({number, std::move(line)});
        };
        mNextStep = number + 1;
        client = client->Step(mToken, submit, now) ? std::next(client) : mClients.erase(client);
        if (budget.IsSpent()) return;
    }
}

void PanelServer::Serve(const PanelBudget& budget)
{
    const int64_t now = mClock();
    AcceptClients(budget, now);
    if (mClients.empty()) return;
    ExchangeWithQueue();  // so that answers are sent in this tick
    LookForChanges();
    StepClients(budget, now);
    ExchangeWithQueue();  // so that requests are served until the next one
}

}  // namespace plugincore
