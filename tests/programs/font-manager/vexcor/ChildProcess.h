#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

// A program that a test started. It is killed with the test if it still runs.
class ChildProcess {
public:
    // Starts the program with this process's environment and working folder and an empty standard
    // input. Throws std::runtime_error if no process can be started; exits with 127 if the program
    // can't.
    //
    // command   the path of the program and its arguments
    // output    the file that standard output and standard error are written to
    ChildProcess(const std::vector<std::string>& command, std::filesystem::path output);

    // Kills it if it still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Send(int signal) const;

    // Returns whether it has ended. Non-blocking.
    bool HasEnded();

    // Waits for its end. Returns its exit status, or minus the number of the signal that ended it.
    int Wait();

    // Returns what it has written so far.
    std::string GetOutput() const;

    // Waits until its output contains the text or it ends. Returns whether the text is there.
    bool WaitForOutput(const std::string& text);

    pid_t GetNumber() const { return mNumber; }

private:
    pid_t mNumber;
    std::filesystem::path mOutput;
    bool mHasEnded = false;
    int mStatus = 0;
};
