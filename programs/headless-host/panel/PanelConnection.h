#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace headless {

// A TCP connection to this machine in lines, of which no call waits for the other side: whoever is
// served in the same thread must get its turn between the calls. Closed with the object.
class PanelConnection {
public:
    // A line that is longer than this is taken for a mistake, and so is so much unread text.
    static constexpr std::size_t kMaximumBuffer = std::size_t{4} << 20U;

    // Begins to connect to 127.0.0.1. Null, and one line in `error`, if that fails at once.
    static std::unique_ptr<PanelConnection> Open(int port, std::string& error);

    ~PanelConnection();
    PanelConnection(const PanelConnection&) = delete;
    PanelConnection& operator=(const PanelConnection&) = delete;

    // To be sent by the next pumps, with a line end.
    void Queue(const std::string& line) { mOutput += line + '\n'; }

    // Connects, sends and receives as far as the system can at the moment. If there is nothing to
    // do it waits for the system, and no longer than `milliseconds`.
    void Pump(int milliseconds);

    // The next line without its end, if it is there. Lines stay to be taken after an error.
    std::optional<std::string> TakeLine();

    // One line, when the connection failed or was closed; empty while it stands.
    const std::string& GetError() const { return mError; }

private:
    explicit PanelConnection(int socket, std::string name);

    void FinishConnecting();
    void Send();
    void Receive();
    void Fail(const std::string& reason);

    int mSocket;
    std::string mName;
    bool mIsConnected = false;
    std::string mOutput;
    std::string mInput;
    std::string mError;
};

}  // namespace headless
