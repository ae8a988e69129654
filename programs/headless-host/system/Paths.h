#pragma once

#include <string>
#include <vector>

// Paths of files and folders.
namespace headless {

// The folder of the running program; empty if the system doesn't report it.
std::string GetProgramFolder();

// `path` as a normalized absolute path, relative to the current folder. The path need not exist.
std::string MakeAbsolute(const std::string& path);

// The same, relative to `folder`, which must be absolute.
std::string MakeAbsolute(const std::string& folder, const std::string& path);

bool IsFolder(const std::string& path);

// Why the folder cannot be listed, such as "Permission denied"; empty if it can.
std::string GetListError(const std::string& folder);

// Path completion: the entries whose path begins with `start`, sorted; folders end with "/". Hidden
// entries are included only if `start` names a hidden one.
//
// folder   what a relative `start` is relative to
std::vector<std::string> ListPaths(const std::string& folder, const std::string& start);

}  // namespace headless
