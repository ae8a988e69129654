#pragma once
#include <sys/types.h>

#include <string>

// A shell command on a terminal of its own, as if a user had started it in a window. Ends the
// command's process group when it is destroyed.
class PseudoTerminal {
public:
    // Starts `command` with /bin/sh as the leader of a session with the new terminal.
    explicit PseudoTerminal(const std::string& command);
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // Sends keys.
    void Type(const std::string& keys);

    // Reads until the screen contains `text`, the command has closed the terminal or a minute has
    // passed. Returns whether it contains the text.
    bool WaitFor(const std::string& text);

    // Reads until the command has closed the terminal. Returns all that it printed, with the
    // control sequences.
    const std::string& ReadAll();

    // Closes the terminal, as a user closes the window.
    void Close();

    // Waits for the end of the command. Returns its exit status; -1 if a signal ended it.
    int Wait();

private:
    bool ReadMore();

    int mTerminal = -1;
    pid_t mProcess = -1;
    std::string mScreen;
};
