#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace headless {

// A non-blocking WebSocket to the panel's port on localhost. No call waits for the server, because
// the server works in the same thread, between the calls. Not thread-safe.
class PanelConnection {
public:
    // The most bytes that may be received and not yet taken. More is an error, so the limit also
    // applies to the length of a message.
    static constexpr std::size_t kMaximumBuffer = std::size_t{4} << 20U;

    // Starts to connect to `port` of 127.0.0.1. Returns null, with one line in `error`, if that
    // fails at once; later failures are reported by GetError.
    static std::unique_ptr<PanelConnection> Open(int port, std::string& error);

    // Closes the connection; queued messages may be lost.
    ~PanelConnection();
    PanelConnection(const PanelConnection&) = delete;
    PanelConnection& operator=(const PanelConnection&) = delete;

    // Adds a text message for the next calls of Pump to send.
    void Queue(const std::string& message);

    // Connects, sends and receives as much as is possible without waiting. If nothing is possible,
    // first waits up to `milliseconds` until something is.
    void Pump(int milliseconds);

    // The next received message; nothing if there is none. Also works after an error.
    std::optional<std::string> TakeMessage();

    // One line after the connection has failed or was closed by the server, else empty.
    const std::string& GetError() const;

private:
    class Socket;
    explicit PanelConnection(std::unique_ptr<Socket> socket);

    std::unique_ptr<Socket> mSocket;
};

}  // namespace headless
