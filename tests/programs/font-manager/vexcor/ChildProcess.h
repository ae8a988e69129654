#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

// A program that a test has started. It ends with the test at the latest.
class ChildProcess {
public:
    // `command` is the program and its arguments. What it writes goes to the file, both outputs;
    // its input is empty. It gets this process's environment and folder.
    ChildProcess(const std::vector<std::string>& command, std::filesystem::path output);

    // Kills it if it still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Send(int signal) const;

    // Whether it has ended by itself or by a signal. Doesn't wait.
    bool HasEnded();

    // Waits for its end: its exit status, or minus the number of the signal that ended it.
    int Wait();

    // What it has written by now.
    std::string GetOutput() const;

    // Waits until the text is in its output, or until it ends; true if the text is there.
    bool WaitForOutput(const std::string& text);

    pid_t GetNumber() const { return mNumber; }

private:
    pid_t mNumber;
    std::filesystem::path mOutput;
    bool mHasEnded = false;
    int mStatus = 0;
};
