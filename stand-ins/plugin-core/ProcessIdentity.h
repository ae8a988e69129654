#pragma once

#include <string>

// Names a process for good: its number can come again, together with its start time it can't.
namespace plugincore {

// "<pid>:<boot>:<start time>" of this process.
std::string GetIdentityOfThisProcess();

// Whether the process that once got this identity still runs. A text of another form names none.
bool IsProcessAlive(const std::string& identity);

}  // namespace plugincore
