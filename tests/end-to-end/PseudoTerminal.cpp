#include "PseudoTerminal.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace {

constexpr int kMostMilliseconds = 60000;  // for each wait for more output

}  // namespace

PseudoTerminal::PseudoTerminal(const std::string& command)
{
    mProcess = forkpty(&mTerminal, nullptr, nullptr, nullptr);
    if (mProcess < 0) throw std::runtime_error("no pseudo terminal");
    if (mProcess == 0) {
        (void)execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
}

PseudoTerminal::~PseudoTerminal()
{
    Close();
    if (mProcess > 0) (void)kill(-mProcess, SIGKILL);
    (void)Wait();
}

void PseudoTerminal::Type(const std::string& keys)
{
    const ssize_t count = write(mTerminal, keys.data(), keys.size());
    if (count != static_cast<ssize_t>(keys.size())) throw std::runtime_error("cannot type");
}

bool PseudoTerminal::ReadMore()
{
    pollfd input = {mTerminal, POLLIN, 0};
    if (poll(&input, 1, kMostMilliseconds) <= 0) return false;
    char buffer[4096];
    // Fails with EIO when no process has the terminal open any more.
    const ssize_t count = read(mTerminal, buffer, sizeof buffer);
    if (count <= 0) return false;
    mScreen.append(buffer, static_cast<size_t>(count));
    return true;
}

bool PseudoTerminal::WaitFor(const std::string& text)
{
    while (mScreen.find(text) == std::string::npos) {
        if (!ReadMore()) return false;
    }
    return true;
}

const std::string& PseudoTerminal::ReadAll()
{
    while (ReadMore()) continue;
    return mScreen;
}

void PseudoTerminal::Close()
{
    if (mTerminal >= 0) (void)close(mTerminal);
    mTerminal = -1;
}

int PseudoTerminal::Wait()
{
    int status = 0;
    if (mProcess <= 0 || waitpid(mProcess, &status, 0) != mProcess) return -1;
    mProcess = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
