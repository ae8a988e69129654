#pragma once

#include <cstdint>
#include <string>

// A client of the panel's socket, which may violate the protocol.
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
