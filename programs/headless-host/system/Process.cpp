#include "system/Process.h"

#include <spawn.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "base/ProcessGroup.h"
#include "system/Interrupts.h"

extern char** environ;

namespace headless {

int RunCommand(const std::string& command, const std::string& folder, bool outputToError)
{
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&actions) != 0) return -1;
    if (posix_spawnattr_init(&attributes) != 0) {
        (void)posix_spawn_file_actions_destroy(&actions);  // always succeeds
        return -1;
    }
    // A process group of its own, so that an interrupt also ends what the command started.
    int failure = posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    if (failure == 0) failure = posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    if (failure == 0 && outputToError) {
        failure = posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
    }
    std::string shell = "/bin/sh";
    std::string option = "-c";
    std::string text = command;
    char* const arguments[] = {shell.data(), option.data(), text.data(), nullptr};
    pid_t child = -1;
    if (failure == 0) {
        failure = posix_spawn(&child, shell.c_str(), &actions, &attributes, arguments, environ);
    }
    // Both always succeed.
    (void)posix_spawn_file_actions_destroy(&actions);
    (void)posix_spawnattr_destroy(&attributes);
    if (failure != 0) return -1;

    base::ProcessGroup group(child);
    bool isTerminated = false;
    while (!group.HasEnded()) {
        if (IsInterrupted() && !isTerminated) {
            isTerminated = true;
            group.SendSignal(SIGTERM);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return group.Wait().status;
}

}  // namespace headless
