#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "base/FileDescriptor.h"

// TCP on the loopback interface. Non-blocking. Writes to a closed connection don't raise SIGPIPE.
namespace plugincore {

class PanelConnection {
public:
    explicit PanelConnection(base::FileDescriptor socket) : mSocket(std::move(socket)) {}

    enum class State { kOpen, kEnded };

    // Appends received bytes to `bytes`, at most `limit`. Returns kEnded if no more can arrive.
    State Receive(std::string& bytes, size_t limit);

    // Sends as many of the `size` bytes as is possible now; `sent` is their number. Returns kEnded
    // if no more can be sent.
    State Send(const char* bytes, size_t size, size_t& sent);

    // Shuts down the sending side. The peer reads to the end of the sent bytes.
    void EndOutput();

private:
    base::FileDescriptor mSocket;
};

class PanelListener {
public:
    // Listens on 127.0.0.1, on a port that the system chooses. Throws Failure.
    PanelListener();

    uint16_t GetPort() const { return mPort; }

    // Accepts the next waiting connection, if there is one.
    std::optional<PanelConnection> Accept();

private:
    base::FileDescriptor mSocket;
    uint16_t mPort = 0;
};

}  // namespace plugincore
