#include "activation/SystemCallTrace.h"

#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace {

// PTRACE_O_TRACESYSGOOD sets this bit in the signal of a stop at a system call.
constexpr int kSystemCallStop = SIGTRAP | 0x80;

[[noreturn]] void ThrowErrno(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

// Threads and processes that the child starts are traced as well.
void BeginTracing(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) ThrowErrno("no traced child");
    constexpr long kOptions = PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_TRACEFORK |
                              PTRACE_O_TRACEVFORK | PTRACE_O_EXITKILL;
    if (ptrace(PTRACE_SETOPTIONS, child, nullptr, kOptions) != 0) ThrowErrno("PTRACE_SETOPTIONS");
}

// The signal that the stopped thread is to receive; 0 for stops that tracing causes.
long GetSignal(int status)
{
    const int signal = WSTOPSIG(status);
    const bool isOfTracing = signal == kSystemCallStop || signal == SIGTRAP || signal == SIGSTOP;
    return isOfTracing ? 0 : signal;
}

}  // namespace

int TraceSystemCalls(const std::function<int()>& body, const std::function<void()>& look)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == -1) ThrowErrno("fork");
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(127);
        (void)raise(SIGSTOP);
        _exit(body());
    }
    BeginTracing(child);
    pid_t stopped = child;
    for (long signal = 0;;) {
        // Fails for a thread that was killed meanwhile; waitpid reports its end.
        (void)ptrace(PTRACE_SYSCALL, stopped, nullptr, signal);
        int status = 0;
        stopped = waitpid(-1, &status, __WALL);
        if (stopped == -1) ThrowErrno("waitpid");
        if (WIFSTOPPED(status)) {
            if (WSTOPSIG(status) == kSystemCallStop) look();
            signal = GetSignal(status);
        } else if (stopped == child) {
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
    }
}
