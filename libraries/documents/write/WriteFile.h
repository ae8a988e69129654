#pragma once

#include <string>

namespace documents {

// Replaces the content of the file at `path`, or creates it. Atomic: on failure the old file is
// unchanged and no temporary file remains. Follows a symbolic link; keeps the file's permissions.
//
// recordFolder   where DraftRecord records the temporary file while this function runs; "" for none
// Returns "", or the reason in a few words without the path. Throws std::bad_alloc only.
std::string ReplaceFile(const std::string& path, const std::string& bytes,
                        const std::string& recordFolder = {});

}  // namespace documents
