#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vexcor {

// Returns the absolute path of this program's executable. Throws Failure if the file was removed or
// replaced since the program started.
std::string GetProgramPath();

// Returns the contents of a file, "" if it doesn't exist. Throws Failure if it can't be read, isn't
// a regular file or is larger than 16 MiB.
std::string ReadSmallFile(const std::filesystem::path& file);

// Returns the ids of the other processes of this user that have the file open.
std::vector<int> ListProcessesWithOpenFile(const std::filesystem::path& file);

struct ChildProcessName {
    int process;
    std::string name;  // of the program, at most 15 bytes; "" if it can't be read
};

// Returns the children of this process that run.
std::vector<ChildProcessName> ListChildren();

}  // namespace vexcor
