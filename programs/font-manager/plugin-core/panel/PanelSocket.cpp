#include "plugin-core/panel/PanelSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "plugin-core/storage/Failure.h"

namespace plugincore {
namespace {

[[noreturn]] void Throw(const char* what)
{
    throw Failure(StatusCodes::kError, std::string("the panel's socket: ") + what + ": " +
                                           std::generic_category().message(errno));
}

bool IsJustNotNow() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

}  // namespace

void Descriptor::OSClose() noexcept
{
    // What was to be sent has been sent or given up by now, so a failure has nobody to go to.
    if (mValue >= 0) (void)close(mValue);
}

PanelConnection::State PanelConnection::Receive(std::string& bytes, size_t limit)
{
    std::array<char, 16384> chunk;
    while (limit > 0) {
        const ssize_t count =
            recv(mSocket.Get(), chunk.data(), std::min(chunk.size(), limit), MSG_DONTWAIT);
        if (count < 0) return IsJustNotNow() ? State::kOpen : State::kEnded;
        if (count == 0) return State::kEnded;
        bytes.append(chunk.data(), static_cast<size_t>(count));
        limit -= static_cast<size_t>(count);
    }
    return State::kOpen;
}

PanelConnection::State PanelConnection::Send(std::string& bytes)
{
    size_t sent = 0;
    State state = State::kOpen;
    while (sent < bytes.size()) {
        const ssize_t count = send(mSocket.Get(), bytes.data() + sent, bytes.size() - sent,
                                   MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count < 0 && !IsJustNotNow()) state = State::kEnded;
        if (count <= 0) break;
        sent += static_cast<size_t>(count);
    }
    bytes.erase(0, sent);
    return state;
}

void PanelConnection::EndOutput()
{
    (void)shutdown(mSocket.Get(), SHUT_WR);  // fails if the other side is gone: then it is ended
}

PanelListener::PanelListener()
    : mSocket(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    constexpr int kBacklog = 128;
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (!mSocket.IsValid()) Throw("cannot be made");
    if (bind(mSocket.Get(), generic, size) != 0) Throw("gets no port");
    if (listen(mSocket.Get(), kBacklog) != 0) Throw("cannot listen");
    if (getsockname(mSocket.Get(), generic, &size) != 0) Throw("doesn't tell its port");
    mPort = ntohs(address.sin_port);
}

std::optional<PanelConnection> PanelListener::Accept()
{
    Descriptor socket(accept4(mSocket.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!socket.IsValid()) return std::nullopt;  // none waits, or it has gone again
    return PanelConnection(std::move(socket));
}

}  // namespace plugincore
