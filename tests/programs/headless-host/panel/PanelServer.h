#pragma once

#include <functional>
#include <string>
#include <vector>

// A non-blocking WebSocket server for one client on 127.0.0.1. It works only in Tick.
class PanelServer {
public:
    PanelServer();
    ~PanelServer();
    PanelServer(const PanelServer&) = delete;
    PanelServer& operator=(const PanelServer&) = delete;

    int GetPort() const { return mPort; }
    bool HasClient() const { return mClient >= 0; }

    // Accepts a client if there is none, reads the available bytes, answers the handshake, passes
    // each text message to `answer`, sends the next part of the answers, and drops a client that
    // has disconnected.
    void Tick();

    // Accepts no further client.
    void StopListening();

    // Disconnects the client after all answers were sent.
    void Hang() { mHangsUp = true; }

    // Returns the messages to send for a message, each ended by a line feed. Text without a line
    // feed is sent as the begin of a longer message.
    std::function<std::string(const std::string& message)> answer;
    std::vector<std::string> messages;       // received so far
    std::string handshakeAnswer;             // to send in the place of the right one, if not ""
    std::size_t bytesPerTick = 1024 * 1024;  // the most bytes that one tick sends

private:
    void Drop();
    bool TakeHandshake();
    bool TakeFrame(std::string& message);
    void Read();
    void Write();

    int mListener = -1;
    int mClient = -1;
    int mPort = 0;
    bool mHangsUp = false;
    bool mIsClientGone = false;
    bool mIsOpen = false;
    std::string mInput;
    std::string mOutput;
};
