#pragma once

#include <string>

namespace headless {

// Runs a command with /bin/sh and waits for its end. An interrupt of this process terminates the
// command and all processes it started.
//
// folder          the command's current folder
// outputToError   whether the command's standard output goes to standard error, which keeps the
//                 program's own standard output clean
// Returns the exit status; -1 if the command could not be started or a signal ended it.
int RunCommand(const std::string& command, const std::string& folder, bool outputToError);

}  // namespace headless
