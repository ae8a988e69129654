#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/FileDescriptor.h"

// A client of the panel's socket. Non-blocking.
class AttackingClient {
public:
    // Throws std::runtime_error if the connection cannot be opened.
    explicit AttackingClient(int port);

    // Sends the line as soon as the socket takes it.
    void Queue(const std::string& line) { mOutput += line + "\n"; }
    void Send();
    void EndOutput();

    // Returns the lines that have arrived completely since the last call.
    std::vector<std::string> ReadLines();

private:
    base::FileDescriptor mSocket;
    std::string mInput;
    std::string mOutput;
};

struct PanelPlace {
    int port = 0;
    std::string tokenLine;
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
