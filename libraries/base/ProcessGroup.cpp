#include "base/ProcessGroup.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

namespace base {

namespace {

constexpr int kNotStarted = 127;  // as a shell reports a command that can't be started

[[noreturn]] void RunChild(const std::function<void()>& run, pid_t parent)
{
    (void)setpgid(0, 0);                     // a new process leads no group, so this can't fail
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);  // a valid signal: can't fail
    // The parent may have ended before the line above.
    if (getppid() == parent) run();
    _exit(kNotStarted);
}

// Waits until the process has ended, but leaves it to waitpid: until then the number of its group
// can't be that of another one.
void WaitForEnd(pid_t process)
{
    siginfo_t information = {};
    while (waitid(P_PID, static_cast<id_t>(process), &information, WEXITED | WNOWAIT) != 0 &&
           errno == EINTR) {
        continue;
    }
}

}  // namespace

std::string Describe(const ProcessEnd& end)
{
    if (end.signal != 0) return std::string("ended by ") + strsignal(end.signal);
    return "ended with status " + std::to_string(end.status);
}

ProcessGroup::~ProcessGroup()
{
    if (IsRunning()) (void)Kill();
}

ProcessGroup::ProcessGroup(ProcessGroup&& other) noexcept
    : mLeader(std::exchange(other.mLeader, -1))
{
}

ProcessGroup& ProcessGroup::operator=(ProcessGroup&& other) noexcept
{
    std::swap(mLeader, other.mLeader);
    return *this;
}

ProcessGroup ProcessGroup::Fork(const std::function<void()>& run)
{
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) RunChild(run, parent);
    // The child does the same: whichever is first, the group exists before a signal is sent to it.
    if (child > 0) (void)setpgid(child, child);
    return ProcessGroup(child);
}

bool ProcessGroup::HasEnded() const
{
    siginfo_t information = {};
    const int result =
        waitid(P_PID, static_cast<id_t>(mLeader), &information, WEXITED | WNOHANG | WNOWAIT);
    // An error means that there is no such child process any more.
    return result != 0 || information.si_pid == mLeader;
}

void ProcessGroup::SendSignal(int signal) const
{
    if (IsRunning()) (void)kill(-mLeader, signal);  // fails if all have ended
}

ProcessEnd ProcessGroup::Wait()
{
    if (!IsRunning()) return {};
    int status = 0;
    pid_t result = 0;
    do {
        result = waitpid(mLeader, &status, 0);
    } while (result < 0 && errno == EINTR);
    const bool isKnown = std::exchange(mLeader, -1) == result;
    if (isKnown && WIFSIGNALED(status)) return {-1, WTERMSIG(status)};
    return isKnown ? ProcessEnd{WEXITSTATUS(status), 0} : ProcessEnd();
}

ProcessEnd ProcessGroup::WaitAndKillRest()
{
    if (IsRunning()) WaitForEnd(mLeader);
    return Kill();
}

ProcessEnd ProcessGroup::Kill()
{
    SendSignal(SIGKILL);
    return Wait();
}

void LimitResource(int resource, uint64_t most)
{
    const rlimit limit = {most, most};
    (void)setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

}  // namespace base
