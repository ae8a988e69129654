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

// Not Boost.Asio's accept, whose descriptor the host's child processes would inherit.
base::FileDescriptor PanelListener::Accept()
{
    return base::FileDescriptor(
        accept4(mSocket.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

}  // namespace plugincore
