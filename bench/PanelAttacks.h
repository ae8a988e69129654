#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/FileDescriptor.h"

// A client of the panel's port: a WebSocket, or an HTTP client. Non-blocking.
class AttackingClient {
public:
    // Connects and queues the request. Throws std::runtime_error if the connection cannot be
    // opened.
    AttackingClient(int port, const std::string& request);

    // Sends the message as soon as the socket takes it and the server has accepted the handshake.
    void Queue(const std::string& message);
    void Send();
    void EndOutput();

    // Returns the messages that have arrived completely since the last call.
    std::vector<std::string> ReadMessages();

    // Sends the bytes as they are.
    void SendBytes(const std::string& bytes);

    // Whether the server has closed the connection, and whether it has answered with status 200
    // before. Send looks for that.
    bool HasEnded() const { return mHasEnded; }
    bool IsServed() const { return mIsServed; }

private:
    void Read();
    void ReadHandshake();

    base::FileDescriptor mSocket;
    std::string mInput;
    std::string mOutput;
    std::string mFrames;  // for mOutput after the handshake
    bool mIsOpen = false;
    bool mHasEnded = false;
    bool mIsServed = false;
};

struct PanelPlace {
    int port = 0;
    std::string handshake;  // the request for a WebSocket
    std::string tokenMessage;
    std::string pageRequest;
    std::vector<std::string> names;  // the fonts of the library
};

// The answers to the requests of an attack. An attack without answers proves nothing.
struct PanelAnswers {
    size_t served = 0;
    size_t refused = 0;
};

// What one attacker does before each tick, and its name in the report.
struct PanelAttack {
    std::string name;
    std::function<void(int tick)> act;
    std::shared_ptr<const PanelAnswers> answers;  // null if it sends no requests to wait for
};

// Returns the attacks, which share no clients. A client disconnects with its attack.
std::vector<std::function<PanelAttack()>> ListPanelAttacks(const PanelPlace& place);
