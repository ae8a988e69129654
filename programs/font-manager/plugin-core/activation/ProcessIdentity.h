#pragma once

#include <string>

// Names a process for good: its number can come again, together with its start time it can't.
namespace plugincore {

// "<pid>:<boot>:<start time>" of this process. Throws Failure if the system doesn't tell.
std::string GetIdentityOfThisProcess();

// Whether the process that once got this identity still runs. A text of another form names none.
// One that runs and can't be looked at for the moment counts as running.
bool IsProcessAlive(const std::string& identity);

// The file name of this process's executable.
std::string GetNameOfThisProgram();

}  // namespace plugincore
