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

std::string MakeHandshake(int port)
{
    return "GET /socket HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(port) +
           "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
           "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n";
}

std::string MakeFrame(const std::string& payload, FrameType type, bool isLast)
{
    constexpr size_t kMostShort = 125;
    constexpr size_t kMostMedium = 65535;
    constexpr int kMasked = 0x80;
    const std::string mask = "\x5a\xa5\x01\xfe";
    std::string frame(1, static_cast<char>((isLast ? 0x80 : 0) | static_cast<int>(type)));
    const size_t size = payload.size();
    const auto add = [&](size_t value, int bytes) {
        for (int byte = bytes - 1; byte >= 0; --byte)
            frame += static_cast<char>(value >> (8 * byte));
    };
    add(kMasked | (size <= kMostShort ? size : size <= kMostMedium ? 126U : 127U), 1);
    if (size > kMostShort) add(size, size <= kMostMedium ? 2 : 8);
    frame += mask;
    for (size_t at = 0; at < size; ++at) {
        frame += static_cast<char>(payload[at] ^ mask[at % mask.size()]);
    }
    return frame;
}

// Expects frames that aren't masked or fragmented, as the server sends them.
bool PanelSocketPeer::TakeFrame(std::string& heard)
{
    const auto byteAt = [this](size_t at) {
        return static_cast<size_t>(static_cast<unsigned char>(mBytes[at]));
    };
    if (mBytes.size() < 2) return false;
    size_t size = byteAt(1);
    size_t start = 2;
    if (size >= 126) {
        const size_t bytes = size == 126 ? 2 : 8;
        if (mBytes.size() < start + bytes) return false;
        size = 0;
        for (; start < 2 + bytes; ++start) size = size << 8 | byteAt(start);
    }
    if (mBytes.size() - start < size) return false;
    const std::string payload = mBytes.substr(start, size);
    const auto type = static_cast<FrameType>(byteAt(0) & 0x0f);
    if ((byteAt(0) & 0xf0) != 0x80) heard += "not one whole frame without extensions\n";
    if (type == FrameType::kText) heard += payload + "\n";
    if (type == FrameType::kPong) mPongs += payload;
    if (type == FrameType::kClose)
        mCloseCode = static_cast<int>(byteAt(start) << 8 | byteAt(start + 1));
    mBytes.erase(0, start + size);
    return true;
}

std::string PanelSocketPeer::Hear(int milliseconds)
{
    mBytes += Receive(milliseconds);
    if (!mIsOpen) {
        const size_t end = mBytes.find("\r\n\r\n");
        if (end == std::string::npos) return {};
        mHeader = mBytes.substr(0, end + 2);
        mIsOpen = mHeader.rfind("HTTP/1.1 101 ", 0) == 0;
        if (!mIsOpen) return {};
        mBytes.erase(0, end + 4);
    }
    std::string heard;
    while (TakeFrame(heard)) {
    }
    return heard;
}
