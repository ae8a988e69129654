#pragma once

#include <filesystem>
#include <string>

namespace plugincore {

// Replaces the content of a file atomically: a reader sees the old bytes or the new ones. Creates
// the file and missing folders above it. A symbolic link is followed. An existing file keeps its
// permissions; only the user can read a new one. Throws Failure and leaves the file unchanged if
// it can't be written.
void WriteFileAtomically(const std::filesystem::path& file, const std::string& bytes);

}  // namespace plugincore
