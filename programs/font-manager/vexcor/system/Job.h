#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "base/FileDescriptor.h"
#include "vexcor/system/PassedSignals.h"

namespace vexcor {

// A program and its arguments.
using CommandLineWords = std::vector<std::string>;

// Commands that run in a process group of their own, as a job of a shell does: what kills the group
// doesn't kill Vexcor, and the terminal is theirs while they run. Signals that Vexcor gets are
// passed on to the group. If the job is stopped, Vexcor stops with it.
class Job {
public:
    // The exit statuses of a shell for a command that cannot be started.
    static constexpr int kNotExecutable = 126;
    static constexpr int kNotFound = 127;
    // A shell adds this to the number of the signal that ended a command.
    static constexpr int kEndedBySignal = 128;

    // `signals` has to outlive this object.
    explicit Job(const PassedSignals& signals);

    // Starts a command in the working folder `folder`, in the present one for "". Returns 0 or the
    // reason why it can't be started, a number of errno. All commands are started before Wait.
    int Start(const CommandLineWords& words, const std::string& folder = {});

    // Waits until the commands, and what they left running in their group, have ended. Prints a
    // line if that takes long after the end of the commands, and one for each process that has left
    // the group and runs on.
    //
    // Returns the first exit status that isn't 0, in the order of the commands; 128 and the number
    // of the signal for a command that was ended by one.
    int Wait();

private:
    struct Command {
        pid_t process;
        std::string name;
        bool hasEnded;
        int status;
    };

    void Reap();
    void Note(pid_t process, int status);
    void HandleStop(int signal);
    bool HasTerminal() const;
    bool HasJobTerminal() const;
    void GiveTerminal(pid_t group) const;
    bool HaveCommandsEnded() const;
    bool IsGroupEmpty() const;
    void ReportDetached() const;

    const PassedSignals& mSignals;
    base::FileDescriptor mTerminal;
    pid_t mGroup = 0;
    std::vector<Command> mCommands;
};

}  // namespace vexcor
