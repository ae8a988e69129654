#include "plugin-core/panel/PanelSocket.h"

#include <netinet/in.h>
#include <sys/socket.h>

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

}  // namespace

PanelListener::PanelListener(uint16_t usualPort)
{
    if (usualPort != 0 && Listen(usualPort)) return;
    if (!Listen(0)) Throw("cannot get a port");
}

// Returns false if the port is taken.
bool PanelListener::Listen(uint16_t port)
{
    constexpr int kBacklog = 128;
    mSocket = base::FileDescriptor(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!mSocket.IsValid()) Throw("cannot be created");
    // Connections of a server that has ended still keep its port for a minute. The option doesn't
    // allow two servers on one port.
    const int on = 1;
    if (setsockopt(mSocket.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0) {
        Throw("cannot be set up");
    }
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (bind(mSocket.Get(), generic, size) != 0) return false;
    if (listen(mSocket.Get(), kBacklog) != 0) return false;
    if (getsockname(mSocket.Get(), generic, &size) != 0) Throw("does not report its port");
    mPort = ntohs(address.sin_port);
    return true;
}

// Not Boost.Asio's accept, whose descriptor the host's child processes would inherit.
base::FileDescriptor PanelListener::Accept()
{
    return base::FileDescriptor(
        accept4(mSocket.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

}  // namespace plugincore
