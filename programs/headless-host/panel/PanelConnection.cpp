#include "panel/PanelConnection.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace headless {

namespace {

std::string Describe(int code) { return std::generic_category().message(code); }

bool IsForLater(int code) { return code == EAGAIN || code == EWOULDBLOCK || code == EINTR; }

}  // namespace

std::unique_ptr<PanelConnection> PanelConnection::Open(int port, std::string& error)
{
    const std::string name = "127.0.0.1:" + std::to_string(port);
    const int handle = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0) {
        error = name + ": " + Describe(errno);
        return nullptr;
    }
    std::unique_ptr<PanelConnection> connection(new PanelConnection(handle, name));
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<in_port_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
        connection->mIsConnected = true;
    } else if (errno != EINPROGRESS && errno != EINTR) {
        error = name + ": " + Describe(errno);
        return nullptr;
    }
    return connection;
}

PanelConnection::PanelConnection(int socket, std::string name)
    : mSocket(socket), mName(std::move(name))
{
}

PanelConnection::~PanelConnection()
{
    (void)close(mSocket);  // errors of pending data don't matter any more
}

void PanelConnection::Pump(int milliseconds)
{
    if (!mError.empty()) return;
    pollfd waited = {mSocket, POLLIN, 0};
    if (!mIsConnected || !mOutput.empty()) waited.events |= POLLOUT;
    // After an interrupted wait, the next call tries again.
    if (poll(&waited, 1, milliseconds) <= 0) return;
    if (!mIsConnected) FinishConnecting();
    if (mIsConnected && mError.empty()) Send();
    if (mIsConnected && mError.empty()) Receive();
}

std::optional<std::string> PanelConnection::TakeLine()
{
    const std::size_t end = mInput.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = mInput.substr(0, end);
    mInput.erase(0, end + 1);
    return line;
}

void PanelConnection::FinishConnecting()
{
    int code = 0;
    socklen_t size = sizeof code;
    if (getsockopt(mSocket, SOL_SOCKET, SO_ERROR, &code, &size) != 0) code = errno;
    mIsConnected = code == 0;
    if (!mIsConnected) Fail(Describe(code));
}

void PanelConnection::Send()
{
    while (!mOutput.empty()) {
        const ssize_t count = send(mSocket, mOutput.data(), mOutput.size(), MSG_NOSIGNAL);
        if (count < 0) {
            const int code = errno;
            if (IsForLater(code)) return;
            // Lines that the server sent before it closed the connection may explain the failure.
            Receive();
            if (mError.empty()) Fail(Describe(code));
            return;
        }
        mOutput.erase(0, static_cast<std::size_t>(count));
    }
}

void PanelConnection::Receive()
{
    std::array<char, 65536> part;
    while (true) {
        const ssize_t count = recv(mSocket, part.data(), part.size(), 0);
        if (count < 0) {
            if (!IsForLater(errno)) Fail(Describe(errno));
            return;
        }
        if (count == 0) {
            const bool isHalfLine = !mInput.empty() && mInput.back() != '\n';
            Fail(isHalfLine ? "the connection was closed in the middle of a line"
                            : "the connection was closed");
            return;
        }
        mInput.append(part.data(), static_cast<std::size_t>(count));
        if (mInput.size() > kMaximumBuffer) {
            mInput.clear();
            Fail("the answer is too long");
            return;
        }
    }
}

void PanelConnection::Fail(const std::string& reason) { mError = mName + ": " + reason; }

}  // namespace headless
