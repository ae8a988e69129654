#include "plugin-core/panel/PanelServer.h"

#include <algorithm>
#include <chrono>

#include "plugin-core/panel/PanelLimits.h"

namespace plugincore {

PanelServer::PanelServer(PanelProtocol& protocol, std::string token, Clock clock)
    : mProtocol(protocol), mToken(std::move(token)), mClock(std::move(clock))
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

void PanelServer::AcceptClients(int64_t now)
{
    for (size_t accepted = 0; accepted < PanelLimits::kNewClientsInATick; ++accepted) {
        std::optional<PanelConnection> connection = mListener.Accept();
        if (!connection) return;
        PanelClient client(*std::move(connection), now);
        if (MakeRoom()) {
            mClients.push_back(std::move(client));
        } else {
            client.Reject();
        }
    }
}

void PanelServer::SendEvents()
{
    if (!mHasSubscribers) return;
    for (const std::string& event : mProtocol.TakeEvents()) {
        for (PanelClient& client : mClients) {
            if (client.IsSubscriber()) client.Queue(event);
        }
    }
}

void PanelServer::CountSubscribers()
{
    const bool had = mHasSubscribers;
    mHasSubscribers = std::any_of(mClients.begin(), mClients.end(),
                                  [](const PanelClient& client) { return client.IsSubscriber(); });
    if (mHasSubscribers && !had) mProtocol.BeginEvents();
}

void PanelServer::Serve()
{
    const int64_t now = mClock();
    AcceptClients(now);
    if (mClients.empty()) return;
    const auto serve = [this](const std::string& line) { return mProtocol.Serve(line); };
    SendEvents();
    for (auto client = mClients.begin(); client != mClients.end();) {
        client = client->Step(mToken, serve, now) ? std::next(client) : mClients.erase(client);
    }
    CountSubscribers();
}

}  // namespace plugincore
