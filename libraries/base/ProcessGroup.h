#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <string>

namespace base {

// How a process ended.
struct ProcessEnd {
    int status = -1;  // exit status; -1 if a signal ended the process
    int signal = 0;   // the number of that signal, else 0
};

// "ended by Killed" or "ended with status 3".
std::string Describe(const ProcessEnd& end);

// A child process that leads a process group of its own, so that all that it starts can be ended
// with it. Movable, not copyable. Not thread-safe.
class ProcessGroup {
public:
    // Has no process.
    ProcessGroup() = default;

    // Takes over a child process that leads its group already, as posix_spawn(3) starts it with
    // POSIX_SPAWN_SETPGROUP.
    explicit ProcessGroup(pid_t leader) : mLeader(leader) {}

    // Kills the group if neither Wait nor Kill was called.
    ~ProcessGroup();

    ProcessGroup(ProcessGroup&& other) noexcept;
    ProcessGroup& operator=(ProcessGroup&& other) noexcept;

    // Starts a child process that calls `run`, which ends it with _exit or exec; if `run` returns,
    // the exit status is 127. The child is killed when the thread that called Fork ends. If this
    // process has several threads, `run` may only call async-signal-safe functions.
    // Without a new process IsRunning is false and errno holds the reason.
    static ProcessGroup Fork(const std::function<void()>& run);

    // Whether there is a process that Wait or Kill must be called for. It may have ended.
    bool IsRunning() const { return mLeader > 0; }

    // The id of the leader; -1 if IsRunning is false.
    pid_t GetId() const { return mLeader; }

    // Whether the leader has ended, without waiting for it.
    bool HasEnded() const;

    // Sends `signal` to every process of the group.
    void SendSignal(int signal) const;

    // Waits for the end of the leader. Other processes of the group continue.
    ProcessEnd Wait();

    // Waits for the end of the leader and kills the other processes of the group.
    ProcessEnd WaitAndKillRest();

    // Kills every process of the group and waits for the leader. Returns how the leader had ended
    // if it had ended before.
    ProcessEnd Kill();

private:
    pid_t mLeader = -1;
};

// Limits a resource, such as RLIMIT_DATA, of this process and its future children. For the `run` of
// Fork. Ignores errors: the limit that is in force remains.
void LimitResource(int resource, uint64_t most);

}  // namespace base
