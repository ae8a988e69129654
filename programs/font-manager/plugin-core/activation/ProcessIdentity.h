#pragma once

#include <string>

// A pid can be reused; pid, boot id and start time together identify a process uniquely.
namespace plugincore {

// The holder of fonts that the user activated until further notice. No process has this identity;
// it is always alive.
constexpr const char* kUserHolder = "user";

// Returns "<pid>:<boot id>:<start time>" of this process. Throws Failure if /proc can't be read.
std::string GetIdentityOfThisProcess();

// Whether the process with this identity runs; false for a text of another form. True if a process
// with this pid runs and its start time can't be read.
bool IsProcessAlive(const std::string& identity);

// Returns the file name of this process's executable; "" if it can't be read.
std::string GetNameOfThisProgram();

}  // namespace plugincore
