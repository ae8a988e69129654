#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vexcor {

// What the program takes from the system.

// The full path of this program's executable. Throws Failure if there is none any more.
std::string GetProgramPath();

// The bytes of a file; empty if it isn't there. Throws Failure if it can't be read, or is larger
// than such a file ever is.
std::string ReadSmallFile(const std::filesystem::path& file);

// The numbers of the processes of this user that have the file open, this one left out.
std::vector<int> ListProcessesWithOpenFile(const std::filesystem::path& file);

}  // namespace vexcor
