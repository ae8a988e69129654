#include "SleepingProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

SleepingProcess::SleepingProcess(const std::string& path, const std::string& ownName)
{
    std::filesystem::copy_file("/bin/sleep", path);
    const std::string name = ownName.empty() ? path : ownName;
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    mProcess = fork();
    if (mProcess == 0) {
        execl(path.c_str(), name.c_str(), "1000", nullptr);
        _exit(127);
    }
    (void)close(ends[1]);
    // Waits until exec has closed the other end, or _exit has if exec failed.
    char byte = 0;
    (void)!read(ends[0], &byte, 1);
    (void)close(ends[0]);
    if (mProcess < 0) throw std::runtime_error("no process");
}

SleepingProcess::~SleepingProcess()
{
    (void)kill(mProcess, SIGKILL);
    (void)waitpid(mProcess, nullptr, 0);
}
