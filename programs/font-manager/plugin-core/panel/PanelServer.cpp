#include "plugin-core/panel/PanelServer.h"

#include <algorithm>
#include <chrono>

#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/storage/Failure.h"

namespace plugincore {

PanelServer::PanelServer(PanelQueue& queue, std::string token, Clock clock, uint16_t port)
    : mQueue(queue), mClock(std::move(clock)), mListener(port)
{
    mContext.port = GetPort();
    mContext.token = std::move(token);
}

// A second program leaves the port to the first one, which has it again when it starts anew.
PanelServer::PanelServer(PanelQueue& queue, std::string token, Database& database)
    : PanelServer(queue, std::move(token), GetSteadyMilliseconds, LoadPanelPort(database))
{
    if (LoadPanelPort(database) == 0) StorePanelPort(database, GetPort());
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

void PanelServer::AcceptClients(const PanelBudget& budget)
{
    for (size_t accepted = 0; accepted < PanelLimits::kNewClientsInATick; ++accepted) {
        if (accepted > 0 && budget.IsSpent()) return;
        base::FileDescriptor socket = mListener.Accept();
        if (!socket.IsValid()) return;
        PanelClient client(mLoop, mContext, std::move(socket), ++mLastNumber);
        mMayHaveSteps = true;
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

void PanelServer::SendEvent(const PanelMessage& event)
{
    for (PanelClient& client : mClients) {
        if (client.IsSubscriber()) client.Queue(event);
    }
}

void PanelServer::ExchangeWithQueue()
{
    std::string failure;
    for (const PanelQueue::Result& result : mQueue.Exchange(mContext.requests)) {
        for (const PanelMessage& event : result.events) SendEvent(event);
        if (!result.failure.empty()) failure = result.failure;
        if (result.client == 0) mIsLooking = false;
        const auto client = std::find_if(
            mClients.begin(), mClients.end(),
            [&result](const PanelClient& each) { return each.GetNumber() == result.client; });
        if (client != mClients.end()) client->Answer(result);
    }
    if (!failure.empty()) throw Failure(StatusCodes::kDatabaseError, failure);
}

void PanelServer::LookForChanges()
{
    if (mIsLooking || !HasSubscribers()) return;
    mIsLooking = true;
    mContext.requests.push_back({});
}

void PanelServer::DeleteGoneClients()
{
    for (auto client = mClients.begin(); client != mClients.end();) {
        client = client->CheckTime() ? std::next(client) : mClients.erase(client);
    }
}

void PanelServer::Step(const PanelBudget& budget)
{
    do {
        if (!mLoop.Step()) {
            mMayHaveSteps = !mClients.empty();
            return;
        }
    } while (!budget.IsSpent());
}

void PanelServer::Serve(const PanelBudget& budget)
{
    mContext.now = mClock();
    AcceptClients(budget);
    if (!mMayHaveSteps) return;
    DeleteGoneClients();
    ExchangeWithQueue();  // so that answers are sent in this tick
    LookForChanges();
    Step(budget);
    DeleteGoneClients();
    ExchangeWithQueue();  // so that requests are served until the next one
}

}  // namespace plugincore
