#include "ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

ChildProcess::ChildProcess(const std::vector<std::string>& command, std::filesystem::path output)
    : mOutput(std::move(output))
{
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    std::filesystem::remove(mOutput);  // the output of an earlier process
    const pid_t parent = getpid();
    mNumber = fork();
    if (mNumber < 0) throw std::runtime_error("no process can be started");
    if (mNumber != 0) return;
    const int input = open("/dev/null", O_RDONLY);
    const int file = open(mOutput.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const bool isReady = input >= 0 && file >= 0 && dup2(input, 0) == 0 && dup2(file, 1) == 1 &&
                         dup2(file, 2) == 2 && prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 &&
                         getppid() == parent;
    if (isReady) execv(arguments[0], arguments.data());
    _exit(127);
}

ChildProcess::~ChildProcess()
{
    if (HasEnded()) return;
    Send(SIGKILL);
    (void)Wait();  // it was killed
}

void ChildProcess::Send(int signal) const { (void)kill(mNumber, signal); }

bool ChildProcess::HasEnded()
{
    if (!mHasEnded) mHasEnded = waitpid(mNumber, &mStatus, WNOHANG) == mNumber;
    return mHasEnded;
}

int ChildProcess::Wait()
{
    if (!mHasEnded) mHasEnded = waitpid(mNumber, &mStatus, 0) == mNumber;
    return WIFSIGNALED(mStatus) ? -WTERMSIG(mStatus) : WEXITSTATUS(mStatus);
}

std::string ChildProcess::GetOutput() const
{
    std::ifstream stream(mOutput, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool ChildProcess::WaitForOutput(const std::string& text)
{
    for (;;) {
        const bool isLast = HasEnded();
        if (GetOutput().find(text) != std::string::npos) return true;
        if (isLast) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}
