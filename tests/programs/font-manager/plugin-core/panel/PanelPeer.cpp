#include "PanelPeer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>

PanelPeer::PanelPeer(int port) : mSocket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    if (connect(mSocket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        throw std::system_error(errno, std::generic_category(), "connect");
    }
}

PanelPeer::~PanelPeer() { close(mSocket); }

int64_t PanelPeer::Send(const std::string& bytes) const
{
    const ssize_t count = send(mSocket, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count >= 0) return count;
    return errno == EAGAIN || errno == EWOULDBLOCK ? 0 : -1;
}

void PanelPeer::EndOutput() const
{
    if (shutdown(mSocket, SHUT_WR) != 0) {
        throw std::system_error(errno, std::generic_category(), "shutdown");
    }
}

std::string PanelPeer::Receive(int milliseconds)
{
    pollfd arrival = {mSocket, POLLIN, 0};
    (void)poll(&arrival, 1, milliseconds);  // recv shows the result
    std::string bytes;
    std::array<char, 65536> chunk;
    for (;;) {
        const ssize_t count = recv(mSocket, chunk.data(), chunk.size(), MSG_DONTWAIT);
        if (count > 0) {
            bytes.append(chunk.data(), static_cast<size_t>(count));
            continue;
        }
        if (count == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) mClosed = true;
        return bytes;
    }
}
