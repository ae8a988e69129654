#include "PanelServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>

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
    for (std::size_t end = mInput.find('\n'); end != std::string::npos; end = mInput.find('\n')) {
        lines.push_back(mInput.substr(0, end));
        mInput.erase(0, end + 1);
        if (answer) mOutput += answer(lines.back());
    }
}

void PanelServer::Write()
{
    const std::size_t size = std::min(mOutput.size(), bytesPerTick);
    const ssize_t count = send(mClient, mOutput.data(), size, MSG_NOSIGNAL);
    if (count > 0) mOutput.erase(0, static_cast<std::size_t>(count));
}
