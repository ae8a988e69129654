#pragma once

#include <string>

namespace documents {

// Puts `bytes` in the place of the file at `path`, which may not be there yet. Until all of it is
// on the disk the old file stays as it was, and on failure nothing is left behind; a link is
// followed, and the file's permissions stay. Returns why it failed in a few words without the path,
// or an empty text. Never throws but for lack of memory.
std::string ReplaceFile(const std::string& path, const std::string& bytes);

}  // namespace documents
