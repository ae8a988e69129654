#include "PanelAttacks.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <memory>
#include <stdexcept>

namespace {

using Names = std::vector<std::string>;

std::string MakeRequest(const std::string& operation, const Names& names)
{
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "\"" : ",\"") + name + "\"";
    return "{\"op\":\"" + operation + "\",\"fonts\":[" + list + "]}";
}

Names MakeUnknownNames(int count)
{
    Names names;
    for (int number = 0; number < count; ++number) names.push_back("X" + std::to_string(number));
    return names;
}

// A client with the token. It sends the requests one after the other, each after the answer to the
// one before.
class Asker {
public:
    Asker(const PanelPlace& place, std::vector<std::string> requests)
        : mClient(place.port), mRequests(std::move(requests))
    {
        mClient.Queue(place.tokenLine);
    }
    void Act()
    {
        for (const std::string& line : mClient.ReadLines()) {
            // The first line is the answer to the token.
            if (mNext > 0) {
                const bool isRefused = line.find("\"ok\":true") == std::string::npos;
                ++(isRefused ? mAnswers->refused : mAnswers->served);
            }
            mClient.Queue(mRequests[mNext++ % mRequests.size()]);
        }
        mClient.Send();
    }
    std::shared_ptr<const PanelAnswers> GetAnswers() const { return mAnswers; }

private:
    std::shared_ptr<PanelAnswers> mAnswers = std::make_shared<PanelAnswers>();
    AttackingClient mClient;
    std::vector<std::string> mRequests;
    size_t mNext = 0;
};

PanelAttack Ask(const PanelPlace& place, const std::string& name,
                const std::vector<std::string>& requests)
{
    const auto asker = std::make_shared<Asker>(place, requests);
    return {name, [asker](int) { asker->Act(); }, asker->GetAnswers()};
}

PanelAttack Subscribe(const PanelPlace& place)
{
    const auto asker = std::make_shared<Asker>(
        place, std::vector<std::string>{MakeRequest("activate", place.names),
                                        MakeRequest("deactivate", place.names)});
    const auto subscribers = std::make_shared<std::deque<AttackingClient>>();
    for (int client = 0; client < 20; ++client) {
        subscribers->emplace_back(place.port).Queue(place.tokenLine);
        subscribers->back().Queue("{\"op\":\"subscribe\"}");
    }
    return {"20 subscribers that never read, fonts change",
            [asker, subscribers](int) {
                for (AttackingClient& client : *subscribers) client.Send();
                asker->Act();
            },
            asker->GetAnswers()};
}

PanelAttack HalfClose(const PanelPlace& place)
{
    const auto clients = std::make_shared<std::deque<AttackingClient>>();
    return {"300 half-closed connections",
            [clients, place](int tick) {
                // The system's queue takes 128 at once.
                for (int client = 0; tick % 10 == 0 && client < 100; ++client) {
                    if (clients->size() == 300) clients->pop_front();
                    clients->emplace_back(place.port);
                }
                for (AttackingClient& client : *clients) client.EndOutput();
            },
            nullptr};
}

PanelAttack Flood(const PanelPlace& place)
{
    const auto clients = std::make_shared<std::deque<AttackingClient>>();
    const std::string request = "{\"id\":\"" + std::string(60000, 'x') + "\"}";
    for (int client = 0; client < 31; ++client) {
        clients->emplace_back(place.port).Queue(place.tokenLine);
    }
    return {"31 clients that send 60 KB requests and never read",
            [clients, request](int tick) {
                for (AttackingClient& client : *clients) {
                    if (tick % 4 == 0 && tick < 160) client.Queue(request);
                    client.Send();
                }
            },
            nullptr};
}

}  // namespace

AttackingClient::AttackingClient(int port)
    : mSocket(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    if (connect(mSocket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        errno != EINPROGRESS) {
        throw std::runtime_error("the panel's socket cannot be opened");
    }
}

void AttackingClient::Send()
{
    const ssize_t count =
        send(mSocket.Get(), mOutput.data(), mOutput.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count > 0) mOutput.erase(0, static_cast<size_t>(count));
}

void AttackingClient::EndOutput()
{
    (void)shutdown(mSocket.Get(), SHUT_WR);  // fails until the connection is open
}

std::vector<std::string> AttackingClient::ReadLines()
{
    std::array<char, 65536> chunk;
    for (;;) {
        const ssize_t count = recv(mSocket.Get(), chunk.data(), chunk.size(), MSG_DONTWAIT);
        if (count <= 0) break;
        mInput.append(chunk.data(), static_cast<size_t>(count));
    }
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = mInput.find('\n', start)) != std::string::npos; start = end + 1) {
        lines.push_back(mInput.substr(start, end - start));
    }
    mInput.erase(0, start);
    return lines;
}

std::vector<std::function<PanelAttack()>> ListPanelAttacks(const PanelPlace& place)
{
    return {
        [] {
            return PanelAttack{"no client", [](int) {}, nullptr};
        },
        [=] { return Ask(place, "one client, fonts", {"{\"op\":\"fonts\",\"limit\":1000}"}); },
        [=] {
            return Ask(
                place, "one client, activates and deactivates",
                {MakeRequest("activate", place.names), MakeRequest("deactivate", place.names)});
        },
        [=] {
            return Ask(place, "one client, 1,000 unknown names",
                       {MakeRequest("activate", MakeUnknownNames(1000))});
        },
        [=] { return Subscribe(place); },
        [=] {
            return Ask(place, "one request with 100,000 names",
                       {MakeRequest("activate", MakeUnknownNames(100000))});
        },
        [=] {
            return Ask(place, "requests with 8,000 names",
                       {MakeRequest("activate", MakeUnknownNames(8000))});
        },
        [=] { return HalfClose(place); },
        [=] { return Flood(place); },
    };
}
