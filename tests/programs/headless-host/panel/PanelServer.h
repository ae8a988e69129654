#pragma once

#include <functional>
#include <string>
#include <vector>

// A non-blocking server for one client on 127.0.0.1. It works only in Tick.
class PanelServer {
public:
    PanelServer();
    ~PanelServer();
    PanelServer(const PanelServer&) = delete;
    PanelServer& operator=(const PanelServer&) = delete;

    int GetPort() const { return mPort; }
    bool HasClient() const { return mClient >= 0; }

    // Accepts a client if there is none, reads the available bytes, passes each whole line to
    // `answer`, sends the next part of the answers, and drops a client that has disconnected.
    void Tick();

    // Accepts no further client.
    void StopListening();

    // Disconnects the client after all answers were sent.
    void Hang() { mHangsUp = true; }

    // Returns the bytes to send for a line: none, a part of a line, or several lines.
    std::function<std::string(const std::string& line)> answer;
    std::vector<std::string> lines;          // received so far
    std::size_t bytesPerTick = 1024 * 1024;  // the most bytes that one tick sends

private:
    void Drop();
    void Read();
    void Write();

    int mListener = -1;
    int mClient = -1;
    int mPort = 0;
    bool mHangsUp = false;
    bool mIsClientGone = false;
    std::string mInput;
    std::string mOutput;
};
