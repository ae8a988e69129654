#pragma once

#include <sys/types.h>

#include <string>

// A process of the system's own sleep program, copied to the path, whose folder must exist. It runs
// from the constructor's end until it is ended by the destructor.
class SleepingProcess {
public:
    // The first argument is what the process calls itself; by default the path.
    explicit SleepingProcess(const std::string& path, const std::string& ownName = "");
    ~SleepingProcess();
    SleepingProcess(const SleepingProcess&) = delete;
    SleepingProcess& operator=(const SleepingProcess&) = delete;

    pid_t Number() const { return mProcess; }

private:
    pid_t mProcess = -1;
};
