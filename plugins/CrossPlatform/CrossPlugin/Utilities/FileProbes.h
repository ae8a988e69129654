#pragma once

#include <string>

namespace CorvantaFileUtils {

// Returns true if a regular file exists at `path` (UTF-8). Follows links: one to a folder, and a
// dangling one, is no file. [any thread]
bool FileExists(const std::string& path);

}  // namespace CorvantaFileUtils
