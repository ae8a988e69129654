#pragma once

#include <cstdint>
#include <string>

// A client of the panel's port, which may violate every protocol.
class PanelPeer {
public:
    explicit PanelPeer(int port);
    ~PanelPeer();
    PanelPeer(const PanelPeer&) = delete;
    PanelPeer& operator=(const PanelPeer&) = delete;

    // Returns the number of bytes sent: 0 if none can be sent now, -1 if the connection is broken.
    int64_t Send(const std::string& bytes) const;

    // Closes the sending side. Receive still works.
    void EndOutput() const;

    // Returns what has arrived since the last call; waits up to `milliseconds` if that is nothing.
    // Sets IsClosed if the connection has ended or is broken.
    std::string Receive(int milliseconds = 0);
    bool IsClosed() const { return mClosed; }

private:
    int mSocket;
    bool mClosed = false;
};

// The header of a WebSocket handshake, without the empty line at its end.
std::string MakeHandshake(int port);

enum class FrameType {
    kContinuation = 0,
    kText = 1,
    kBinary = 2,
    kClose = 8,
    kPing = 9,
    kPong = 10
};

// A frame of a client.
std::string MakeFrame(const std::string& payload, FrameType type = FrameType::kText,
                      bool isLast = true);

// A WebSocket, read without a library: what it hears doesn't depend on the server's one.
class PanelSocketPeer : public PanelPeer {
public:
    // Connects and sends the handshake.
    explicit PanelSocketPeer(int port) : PanelPeer(port)
    {
        (void)Send(MakeHandshake(port) + "\r\n");  // Hear shows the result
    }

    // Sends a text message.
    int64_t Say(const std::string& text) const { return Send(MakeFrame(text)); }

    // Returns the text messages that have arrived since the last call, each ended by a line feed.
    // Waits as Receive does.
    std::string Hear(int milliseconds = 0);

    // Whether the server has accepted the handshake.
    bool IsOpen() const { return mIsOpen; }

    // The header of the answer to the handshake.
    const std::string& GetHeader() const { return mHeader; }

    // The code of the server's close; 0 until it arrives.
    int GetCloseCode() const { return mCloseCode; }

    // The payloads of the pongs.
    const std::string& GetPongs() const { return mPongs; }

private:
    bool TakeFrame(std::string& heard);

    std::string mBytes;  // not decoded yet
    std::string mHeader;
    bool mIsOpen = false;
    int mCloseCode = 0;
    std::string mPongs;
};
