#pragma once

#include <filesystem>
#include <string>

namespace plugincore {

// Writes the file, and the folders above it that aren't there, so that a reader sees the old bytes
// or the new ones and nothing between. A link is followed to the file that it leads to. Only the
// user may read what is new; a file that was there keeps its permissions. Throws Failure, with
// nothing left behind, if it can't be done.
void WriteFileAtomically(const std::filesystem::path& file, const std::string& bytes);

}  // namespace plugincore
