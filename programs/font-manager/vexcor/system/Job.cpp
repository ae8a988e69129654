#include "vexcor/system/Job.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "console/Console.h"
#include "vexcor/system/System.h"

extern char** environ;

namespace vexcor {
namespace {

// After this time the user is told what Vexcor waits for.
constexpr int kLongWait = 1000;
// The end of a process in the group that isn't a child of this process sends no signal.
constexpr int kBetweenLooks = 100;

// What posix_spawn(3) needs, released at the end of the scope.
struct SpawnSettings {
    SpawnSettings()
    {
        error = posix_spawnattr_init(&attributes);
        if (error != 0) return;
        error = posix_spawn_file_actions_init(&actions);
        if (error != 0) (void)posix_spawnattr_destroy(&attributes);
        isReady = error == 0;
    }
    ~SpawnSettings()
    {
        if (!isReady) return;
        (void)posix_spawn_file_actions_destroy(&actions);  // always succeeds
        (void)posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t actions;
    int error = 0;
    bool isReady = false;
};

int GetStatus(int status)
{
    return WIFSIGNALED(status) ? Job::kEndedBySignal + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

Job::Job(const PassedSignals& signals)
    : mSignals(signals), mTerminal(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY))
{
    // What a command leaves behind becomes a child of this process, which can wait for it then. If
    // that fails, IsGroupEmpty still finds the processes of the group.
    (void)prctl(PR_SET_CHILD_SUBREAPER, 1);
}

int Job::Start(const CommandLineWords& words, const std::string& folder)
{
    SpawnSettings settings;
    int error = settings.error;
    if (error != 0) return error;
    constexpr short kFlags = POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK;
    error = posix_spawnattr_setflags(&settings.attributes, kFlags);
    if (error == 0) error = posix_spawnattr_setpgroup(&settings.attributes, mGroup);
    if (error == 0) {
        error = posix_spawnattr_setsigmask(&settings.attributes, &mSignals.GetMaskBefore());
    }
    if (error == 0 && !folder.empty()) {
        error = posix_spawn_file_actions_addchdir_np(&settings.actions, folder.c_str());
    }
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (error == 0) {
        error = posix_spawnp(&process, arguments[0], &settings.actions, &settings.attributes,
                             arguments.data(), environ);
    }
    if (error != 0) return error;
    if (mGroup == 0) {
        mGroup = process;
        if (HasTerminal()) GiveTerminal(mGroup);
    }
    mCommands.push_back({process, words[0], false, 0});
    return 0;
}

int Job::Wait()
{
    int waited = 0;
    for (Reap(); !HaveCommandsEnded() || !IsGroupEmpty(); Reap()) {
        const bool isLeft = HaveCommandsEnded();
        const int signal = mSignals.Wait(isLeft ? kBetweenLooks : -1);
        if (signal != 0 && signal != SIGCHLD) (void)kill(-mGroup, signal);  // it may have ended
        if (!isLeft || signal != 0) continue;
        waited += kBetweenLooks;
        if (waited == kLongWait) {
            console::PrintError(mCommands.front().name +
                                ": has ended; waiting for what it left running");
        }
    }
    if (HasJobTerminal()) GiveTerminal(getpgrp());
    ReportDetached();
    const auto failed = std::find_if(mCommands.begin(), mCommands.end(),
                                     [](const Command& command) { return command.status != 0; });
    return failed == mCommands.end() ? 0 : failed->status;
}

void Job::Reap()
{
    int status = 0;
    for (pid_t process = 0; (process = waitpid(-1, &status, WNOHANG | WUNTRACED)) > 0;) {
        if (WIFSTOPPED(status)) {
            HandleStop(WSTOPSIG(status));
        } else {
            Note(process, status);
        }
    }
}

void Job::Note(pid_t process, int status)
{
    for (Command& command : mCommands) {
        if (command.process != process) continue;
        command.hasEnded = true;
        command.status = GetStatus(status);
    }
}

// The job was stopped by the user, or because it used the terminal from the background.
void Job::HandleStop(int signal)
{
    const bool isForTerminal = signal == SIGTTIN || signal == SIGTTOU;
    // A command that was quicker than Start has the terminal already.
    const bool canHaveTerminal = HasTerminal() || HasJobTerminal();
    if (!isForTerminal || !canHaveTerminal) {
        if (HasJobTerminal()) GiveTerminal(getpgrp());
        (void)raise(SIGSTOP);  // returns when the shell continues this process
    }
    if (HasTerminal()) GiveTerminal(mGroup);
    (void)kill(-mGroup, SIGCONT);  // the group may have been killed meanwhile
}

// Whether this process is in the foreground of its terminal.
bool Job::HasTerminal() const
{
    return mTerminal.IsValid() && tcgetpgrp(mTerminal.Get()) == getpgrp();
}

bool Job::HasJobTerminal() const
{
    return mTerminal.IsValid() && tcgetpgrp(mTerminal.Get()) == mGroup;
}

void Job::GiveTerminal(pid_t group) const
{
    (void)tcsetpgrp(mTerminal.Get(), group);  // fails if the terminal was closed
}

bool Job::HaveCommandsEnded() const
{
    return std::all_of(mCommands.begin(), mCommands.end(),
                       [](const Command& command) { return command.hasEnded; });
}

bool Job::IsGroupEmpty() const
{
    // Another error means that the processes of the group belong to another user.
    return mGroup == 0 || (kill(-mGroup, 0) != 0 && errno == ESRCH);
}

void Job::ReportDetached() const
{
    for (const ChildProcessName& child : ListChildren()) {
        console::PrintError(child.name + " (process " + std::to_string(child.process) +
                            "): has detached itself and runs on without the fonts");
    }
}

}  // namespace vexcor
