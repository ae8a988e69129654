#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

// TCP on the loopback interface. Nothing here ever waits, and no signal comes of a broken
// connection.
namespace plugincore {

// Owns a descriptor of the system; -1 is none.
class Descriptor {
public:
    explicit Descriptor(int value = -1) : mValue(value) {}
    ~Descriptor() { OSClose(); }
    Descriptor(Descriptor&& other) noexcept : mValue(other.mValue) { other.mValue = -1; }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(mValue, other.mValue);
        return *this;
    }
    int Get() const { return mValue; }
    bool IsValid() const { return mValue >= 0; }

private:
    void OSClose() noexcept;

    int mValue;
};

class PanelConnection {
public:
    explicit PanelConnection(Descriptor socket) : mSocket(std::move(socket)) {}

    enum class State { kOpen, kEnded };

    // Adds what has arrived to `bytes`, at most `limit` bytes. kEnded if no more will come.
    State Receive(std::string& bytes, size_t limit);

    // Takes from the front of `bytes` what can go out now. kEnded if nothing can go out any more.
    State Send(std::string& bytes);

    // The other side sees the end of what was sent.
    void EndOutput();

private:
    Descriptor mSocket;
};

class PanelListener {
public:
    // Listens on 127.0.0.1, on a port of the system's choice. Throws Failure.
    PanelListener();

    uint16_t GetPort() const { return mPort; }

    // The next connection that waits, if there is one.
    std::optional<PanelConnection> Accept();

private:
    Descriptor mSocket;
    uint16_t mPort = 0;
};

}  // namespace plugincore
