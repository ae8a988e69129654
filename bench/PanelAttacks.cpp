#include "PanelAttacks.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <memory>
#include <stdexcept>
#include <utility>

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

// A frame of a client whose mask changes nothing.
std::string MakeFrame(const std::string& message)
{
    constexpr size_t kMostShort = 125;
    constexpr size_t kMostMedium = 65535;
    constexpr size_t kMasked = 0x80;
    const size_t size = message.size();
    std::string frame = "\x81";  // a whole text
    frame += static_cast<char>(kMasked | (size <= kMostShort    ? size
                                          : size <= kMostMedium ? 126U
                                                                : 127U));
    const int bytes = size <= kMostShort ? 0 : size <= kMostMedium ? 2 : 8;
    for (int byte = bytes - 1; byte >= 0; --byte) frame += static_cast<char>(size >> (8 * byte));
    return frame + std::string(4, '\0') + message;
}

// A client with the token. It sends the requests one after the other, each after the answer to the
// one before.
class Asker {
public:
    Asker(const PanelPlace& place, std::vector<std::string> requests)
        : mClient(place.port, place.handshake), mRequests(std::move(requests))
    {
        mClient.Queue(place.tokenMessage);
    }
    void Act()
    {
        for (const std::string& message : mClient.ReadMessages()) {
            // The first message is the answer to the token.
            if (mNext > 0) {
                const bool isRefused = message.find("\"ok\":true") == std::string::npos;
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
        subscribers->emplace_back(place.port, place.handshake).Queue(place.tokenMessage);
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
                    clients->emplace_back(place.port, "");
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
        clients->emplace_back(place.port, place.handshake).Queue(place.tokenMessage);
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

// Each sends a header byte by byte.
PanelAttack Drip(const PanelPlace& place)
{
    const auto clients = std::make_shared<std::deque<AttackingClient>>();
    const auto letters = std::make_shared<size_t>(0);
    return {"200 clients that send a header byte by byte",
            [clients, letters, place](int tick) {
                for (int client = 0; tick < 20 && client < 10; ++client) {
                    clients->emplace_back(place.port, "");
                }
                const std::string letter(1, place.handshake[*letters % place.handshake.size()]);
                ++*letters;
                for (AttackingClient& client : *clients) client.SendBytes(letter);
            },
            nullptr};
}

// Each asks for the page and leaves; they are always 30.
PanelAttack AskForPage(const PanelPlace& place)
{
    const auto answers = std::make_shared<PanelAnswers>();
    const auto clients = std::make_shared<std::deque<AttackingClient>>();
    return {"30 browsers that load the page again and again",
            [clients, answers, place](int) {
                for (size_t left = clients->size(); left > 0; --left) {
                    AttackingClient client = std::move(clients->front());
                    clients->pop_front();
                    client.Send();
                    if (!client.HasEnded()) {
                        clients->push_back(std::move(client));
                    } else {
                        ++(client.IsServed() ? answers->served : answers->refused);
                    }
                }
                while (clients->size() < 30) clients->emplace_back(place.port, place.pageRequest);
            },
            answers};
}

PanelAttack SendRubbish(const PanelPlace& place)
{
    const auto clients = std::make_shared<std::deque<AttackingClient>>();
    return {"100 clients that send rubbish",
            [clients, place](int) {
                for (int client = 0; client < 10; ++client) {
                    if (clients->size() == 100) clients->pop_front();
                    clients->emplace_back(place.port, std::string(60000, '\xff'));
                }
                for (AttackingClient& client : *clients) client.Send();
            },
            nullptr};
}

}  // namespace

AttackingClient::AttackingClient(int port, const std::string& request)
    : mSocket(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)), mOutput(request)
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

void AttackingClient::Queue(const std::string& message)
{
    (mIsOpen ? mOutput : mFrames) += MakeFrame(message);
}

void AttackingClient::SendBytes(const std::string& bytes)
{
    mOutput += bytes;
    Send();
}

void AttackingClient::Send()
{
    if (!mIsOpen) ReadHandshake();
    const ssize_t count =
        send(mSocket.Get(), mOutput.data(), mOutput.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count > 0) mOutput.erase(0, static_cast<size_t>(count));
}

void AttackingClient::EndOutput()
{
    (void)shutdown(mSocket.Get(), SHUT_WR);  // fails until the connection is open
}

void AttackingClient::Read()
{
    std::array<char, 65536> chunk;
    for (;;) {
        const ssize_t count = recv(mSocket.Get(), chunk.data(), chunk.size(), MSG_DONTWAIT);
        if (count == 0 ||
            (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != ENOTCONN)) {
            mHasEnded = true;
        }
        if (count <= 0) return;
        mInput.append(chunk.data(), static_cast<size_t>(count));
    }
}

void AttackingClient::ReadHandshake()
{
    Read();
    const size_t end = mInput.find("\r\n\r\n");
    mIsServed = mInput.find("HTTP/1.1 200 ") == 0;
    mIsOpen = end != std::string::npos && mInput.find("HTTP/1.1 101 ") == 0;
    if (!mIsOpen) return;
    mInput.erase(0, end + 4);
    mOutput += std::exchange(mFrames, {});
}

std::vector<std::string> AttackingClient::ReadMessages()
{
    if (!mIsOpen) ReadHandshake();
    if (!mIsOpen) return {};
    Read();
    std::vector<std::string> messages;
    const auto byteAt = [this](size_t at) {
        return static_cast<size_t>(static_cast<unsigned char>(mInput[at]));
    };
    while (mInput.size() >= 2) {
        size_t size = byteAt(1);
        size_t start = 2;
        const size_t bytes = size == 126 ? 2 : size == 127 ? 8 : 0;
        if (mInput.size() < start + bytes) break;
        if (bytes != 0) size = 0;
        for (; start < 2 + bytes; ++start) size = size << 8 | byteAt(start);
        if (mInput.size() < start + size) break;
        messages.push_back(mInput.substr(start, size));
        mInput.erase(0, start + size);
    }
    return messages;
}

std::vector<std::function<PanelAttack()>> ListPanelAttacks(const PanelPlace& place)
{
    return {
        [] {
            return PanelAttack{"no client", [](int) {}, nullptr};
        },
        [=] { return Ask(place, "one client, fonts", {"{\"op\":\"fonts\",\"limit\":1000}"}); },
        [=] {
            return Ask(place, "one client, searches",
                       {"{\"op\":\"fonts\",\"search\":\"bold\"}",
                        "{\"op\":\"fonts\",\"search\":\"oblique 7\"}"});
        },
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
        [=] { return Drip(place); },
        [=] { return AskForPage(place); },
        [=] { return SendRubbish(place); },
        [=] { return Flood(place); },
    };
}
