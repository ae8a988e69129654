#pragma once

#include <functional>
#include <string>
#include <vector>

namespace headless {

// What the program takes from the system.

// The folder of the running program; empty if it can't be told.
std::string GetProgramFolder();

// `path` as an absolute one against the current folder, without looking whether it exists.
std::string MakeAbsolute(const std::string& path);

// The same against another folder.
std::string MakeAbsolute(const std::string& folder, const std::string& path);

// Whether there is a file at `path`, and no folder or device, that this user may read.
bool IsReadableFile(const std::string& path);

bool IsFolder(const std::string& path);

// Makes `folder` the home of this process: HOME and the XDG folders point into it. Creates what
// isn't there. False, and one line in `error`, if that can't be done. Call it before fontconfig.
bool UseHome(const std::string& folder, std::string& error);

// The folder that keeps what isn't worth a backup, made if need be; empty if there is none.
std::string GetStateFolder();

// The files and folders below `folder`, or anywhere, whose path begins with `start`, as the user
// would go on writing it; folders end with "/". In order, without hidden ones that aren't asked
// for.
std::vector<std::string> ListPaths(const std::string& folder, const std::string& start);

void SetEnvironment(const char* name, const std::string& value);

bool IsTerminal(int descriptor);

// Interrupts (the terminal's and a polite end) only raise a flag, so that documents are closed and
// the guest is shut down in order.
void CatchInterrupts();
bool IsInterrupted();

// Calls `tick` so many times a second for `seconds`, but no longer than to the next interrupt.
void IdleFor(double seconds, int ticksPerSecond, const std::function<void()>& tick);

// Runs a command with the shell in `folder` and waits for it; an interrupt ends it. With
// `outputToError` what it prints goes to standard error. Returns its exit status, -1 if it couldn't
// be run or was ended.
int RunCommand(const std::string& command, const std::string& folder, bool outputToError);

}  // namespace headless
