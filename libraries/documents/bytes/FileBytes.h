#pragma once

#include <cstddef>
#include <string>

namespace documents {

struct FileBytes {
    std::string bytes;
    std::string error;  // one line without the path; empty on success
};

// Reads the file at `path`, which must be a regular file of at most `limit` bytes.
//
// Calls `accepts` with the first bytes (1,024, or all of a shorter file) before reading the rest,
// so that a huge file of another kind isn't read. It returns "" to accept the file, or the error.
FileBytes ReadFileBytes(const std::string& path, size_t limit,
                        std::string (*accepts)(const std::string& head));

}  // namespace documents
