#pragma once

#include <functional>
#include <string>
#include <vector>

// A server of one client on 127.0.0.1 that never waits: what happens happens in Tick.
class PanelServer {
public:
    PanelServer();
    ~PanelServer();
    PanelServer(const PanelServer&) = delete;
    PanelServer& operator=(const PanelServer&) = delete;

    int GetPort() const { return mPort; }
    bool HasClient() const { return mClient >= 0; }

    // Takes the client if it has none, reads what is there, answers each whole line with what
    // `answer` gives, sends the next part, and lets a client go that hung up.
    void Tick();

    // No client is taken any more.
    void StopListening();

    // Closes the client once what is to be sent was sent.
    void Hang() { mHangsUp = true; }

    // The bytes for a line; it may be no whole line, none or several.
    std::function<std::string(const std::string& line)> answer;
    std::vector<std::string> lines;          // what came
    std::size_t bytesPerTick = 1024 * 1024;  // how much is sent in one

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
