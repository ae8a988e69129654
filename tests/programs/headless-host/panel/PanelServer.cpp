#include "PanelServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <boost/beast/websocket/detail/hybi13.hpp>
#include <stdexcept>

namespace {

// A text frame of a server. `missing` bytes more are announced than the payload has.
std::string MakeServerFrame(const std::string& payload, std::size_t missing)
{
    constexpr std::size_t kMostShort = 125;
    constexpr unsigned int kText = 0x81;
    const std::size_t size = payload.size() + missing;
    std::string frame(1, static_cast<char>(kText));
    frame += static_cast<char>(size <= kMostShort ? size : 127U);
    for (int byte = 7; byte >= 0 && size > kMostShort; --byte) {
        frame += static_cast<char>(size >> (8 * byte));
    }
    return frame + payload;
}

std::string MakeFrames(const std::string& text)
{
    std::string frames;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        frames += MakeServerFrame(text.substr(start, end - start), 0);
    }
    return start == text.size() ? frames : frames + MakeServerFrame(text.substr(start), 1);
}

}  // namespace

PanelServer::PanelServer() : mListener(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (bind(mListener, general, size) != 0 || listen(mListener, 1) != 0 ||
        getsockname(mListener, general, &size) != 0) {
        throw std::runtime_error("no server");
    }
    mPort = ntohs(address.sin_port);
}

PanelServer::~PanelServer()
{
    StopListening();
    if (mClient >= 0) close(mClient);
}

void PanelServer::StopListening()
{
    if (mListener >= 0) close(mListener);
    mListener = -1;
}

void PanelServer::Drop()
{
    close(mClient);
    mClient = -1;
    mIsClientGone = false;
    mIsOpen = false;
    mInput.clear();
    mOutput.clear();
}

bool PanelServer::TakeHandshake()
{
    const std::string name = "Sec-WebSocket-Key: ";
    const std::size_t end = mInput.find("\r\n\r\n");
    const std::size_t key = mInput.find(name);
    if (end == std::string::npos || key == std::string::npos) return false;
    const std::size_t start = key + name.size();
    boost::beast::websocket::detail::sec_ws_accept_type accept;
    boost::beast::websocket::detail::make_sec_ws_accept(
        accept, mInput.substr(start, mInput.find('\r', start) - start));
    mInput.erase(0, end + 4);
    mOutput += !handshakeAnswer.empty()
                   ? handshakeAnswer
                   : "HTTP/1.1 101 \r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                     "Sec-WebSocket-Accept: " +
                         std::string(accept.data(), accept.size()) + "\r\n\r\n";
    return true;
}

// Expects whole messages in one frame each, as the client sends them, and ignores control frames.
bool PanelServer::TakeFrame(std::string& message)
{
    constexpr std::size_t kMask = 4;
    const auto byteAt = [this](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(mInput[at]));
    };
    if (mInput.size() < 2) return false;
    std::size_t size = byteAt(1) & 0x7fU;
    std::size_t start = 2;
    if (size >= 126) {
        const std::size_t bytes = size == 126 ? 2 : 8;
        if (mInput.size() < start + bytes) return false;
        size = 0;
        for (; start < 2 + bytes; ++start) size = size << 8 | byteAt(start);
    }
    if (mInput.size() < start + kMask + size) return false;
    message.clear();
    for (std::size_t at = 0; at < size; ++at) {
        message += static_cast<char>(byteAt(start + kMask + at) ^ byteAt(start + at % kMask));
    }
    mInput.erase(0, start + kMask + size);
    return true;
}

void PanelServer::Tick()
{
    if (mClient < 0 && mListener >= 0) {
        mClient = accept4(mListener, nullptr, nullptr, SOCK_NONBLOCK);
    }
    if (mClient < 0) return;
    Read();
    Write();
    if (mHangsUp && mOutput.empty()) {
        Drop();
        StopListening();
    } else if (mIsClientGone) {
        Drop();
    }
}

void PanelServer::Read()
{
    std::array<char, 65536> part;
    ssize_t count = 0;
    while ((count = recv(mClient, part.data(), part.size(), 0)) > 0) {
        mInput.append(part.data(), static_cast<std::size_t>(count));
    }
    mIsClientGone = count == 0;
    if (!mIsOpen) mIsOpen = TakeHandshake();
    for (std::string message; mIsOpen && TakeFrame(message);) {
        messages.push_back(message);
        if (answer) mOutput += MakeFrames(answer(message));
    }
}

void PanelServer::Write()
{
    const std::size_t size = std::min(mOutput.size(), bytesPerTick);
    const ssize_t count = send(mClient, mOutput.data(), size, MSG_NOSIGNAL);
    if (count > 0) mOutput.erase(0, static_cast<std::size_t>(count));
}
