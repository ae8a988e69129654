#pragma once

#include <filesystem>
#include <string>

namespace base {

// Whether `path` leads to a regular file that this user may read. Symbolic links are followed.
// False as well if that can't be found out. Doesn't open the file, so a FIFO doesn't block it.
bool IsReadableFile(const std::filesystem::path& path);

// The extension of the last component in lower case, with its dot: ".ai" for "/A/B.Ai". Empty if
// there is none; a name whose only dot is its first character has none.
std::string GetLowerExtension(const std::filesystem::path& path);

// The absolute path of a program in the folders of the environment's PATH; "" if there is none.
// Ignores relative folders: with them, the result would depend on the current folder.
std::string FindProgram(const std::string& name);

}  // namespace base
