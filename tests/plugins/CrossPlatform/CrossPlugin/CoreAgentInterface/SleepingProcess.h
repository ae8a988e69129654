#pragma once

#include <sys/types.h>

#include <string>

// A running process of the system's sleep program, which is copied to `path`; its folder must
// exist. The process runs when the constructor returns, until the destructor kills it.
class SleepingProcess {
public:
    // ownName   the first argument (argv[0]) of the process; "" means `path`
    explicit SleepingProcess(const std::string& path, const std::string& ownName = "");
    ~SleepingProcess();
    SleepingProcess(const SleepingProcess&) = delete;
    SleepingProcess& operator=(const SleepingProcess&) = delete;

    pid_t Number() const { return mProcess; }

private:
    pid_t mProcess = -1;
};
