#pragma once

#include <cstdint>
#include <string>

// One client of the panel's socket, as a program of any intention.
class PanelPeer {
public:
    explicit PanelPeer(int port);
    ~PanelPeer();
    PanelPeer(const PanelPeer&) = delete;
    PanelPeer& operator=(const PanelPeer&) = delete;

    // How many bytes went out; 0 if none can at the moment, -1 if the connection is broken.
    int64_t Send(const std::string& bytes) const;

    // Nothing more will be sent; what comes in can still be received.
    void EndOutput() const;

    // What has arrived since the last call; if it is nothing, waits so long for something.
    // Afterwards IsClosed tells of an end or a break.
    std::string Receive(int milliseconds = 0);
    bool IsClosed() const { return mClosed; }

private:
    int mSocket;
    bool mClosed = false;
};
