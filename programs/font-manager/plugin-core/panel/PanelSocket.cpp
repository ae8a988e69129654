#include "plugin-core/panel/PanelSocket.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>

#include "plugin-core/storage/Failure.h"

namespace plugincore {
namespace {

constexpr const char* kPort = "PanelPort";

[[noreturn]] void Throw(const char* what)
{
    throw Failure(StatusCodes::kError, std::string("the panel's socket: ") + what + ": " +
                                           std::generic_category().message(errno));
}

}  // namespace

// If a program was killed, the system keeps its connections for a minute; SO_REUSEADDR doesn't wait
// for that. The port of a program that runs isn't shared.
bool PanelListener::Bind(uint16_t port)
{
    // Also for a port of the system's choice: the program that ends decides too.
    const int yes = 1;
    (void)setsockopt(mSocket.Get(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);  // bind shows it
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return bind(mSocket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
}

PanelListener::PanelListener(uint16_t port)
    : mSocket(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    constexpr int kBacklog = 128;
    sockaddr_in address = {};
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (!mSocket.IsValid()) Throw("cannot be created");
    if ((port == 0 || !Bind(port)) && !Bind(0)) Throw("cannot get a port");
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

uint16_t LoadPanelPort(Database& database)
{
    constexpr int64_t kLowest = 1024;
    constexpr int64_t kHighest = 65535;
    Statement statement(database, "SELECT value FROM choice WHERE name = ?");
    if (!statement.Bind(kPort).Step()) return 0;
    const int64_t port = statement.GetNumber(0);
    return port < kLowest || port > kHighest ? 0 : static_cast<uint16_t>(port);
}

void StorePanelPort(Database& database, uint16_t port)
{
    Statement statement(database, "INSERT OR REPLACE INTO choice(name, value) VALUES(?, ?)");
    statement.Bind(kPort).Bind(std::to_string(port)).Run();
}

}  // namespace plugincore
