#pragma once

#include <string>

namespace CorvantaFileUtils {

// True only for a regular file, links followed; a folder or a dangling link is none.
bool FileExists(const std::string& path);

}  // namespace CorvantaFileUtils
