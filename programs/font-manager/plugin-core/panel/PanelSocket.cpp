#include "plugin-core/panel/PanelSocket.h"

#include <netinet/in.h>
#include <sys/socket.h>

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

bool WouldBlock() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

}  // namespace

PanelConnection::State PanelConnection::Receive(std::string& bytes, size_t limit)
{
    std::array<char, 16384> chunk;
    while (limit > 0) {
        const ssize_t count =
            recv(mSocket.Get(), chunk.data(), std::min(chunk.size(), limit), MSG_DONTWAIT);
        if (count < 0) return WouldBlock() ? State::kOpen : State::kEnded;
        if (count == 0) return State::kEnded;
        bytes.append(chunk.data(), static_cast<size_t>(count));
        limit -= static_cast<size_t>(count);
    }
    return State::kOpen;
}

PanelConnection::State PanelConnection::Send(const char* bytes, size_t size, size_t& sent)
{
    const ssize_t count = send(mSocket.Get(), bytes, size, MSG_DONTWAIT | MSG_NOSIGNAL);
    sent = count > 0 ? static_cast<size_t>(count) : 0;
    return count < 0 && !WouldBlock() ? State::kEnded : State::kOpen;
}

void PanelConnection::EndOutput()
{
    (void)shutdown(mSocket.Get(), SHUT_WR);  // fails only if the peer has closed the connection
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
    if (!mSocket.IsValid()) Throw("cannot be created");
    if (bind(mSocket.Get(), generic, size) != 0) Throw("cannot get a port");
    if (listen(mSocket.Get(), kBacklog) != 0) Throw("cannot listen");
    if (getsockname(mSocket.Get(), generic, &size) != 0) Throw("does not report its port");
    mPort = ntohs(address.sin_port);
}

std::optional<PanelConnection> PanelListener::Accept()
{
    base::FileDescriptor socket(
        accept4(mSocket.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!socket.IsValid()) return std::nullopt;  // none waits, or it was closed again
    return PanelConnection(std::move(socket));
}

}  // namespace plugincore
