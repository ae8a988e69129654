#pragma once

#include <cstddef>
#include <string>

namespace documents {

struct FileBytes {
    std::string bytes;
    std::string error;  // one line without the path; empty if the bytes are there
};

// Reads the file at `path`, which must be a regular file of at most `limit` bytes. `accepts` is
// asked about the first bytes (1,024 or as many as there are) before the rest is read; what it
// gives is the error, so that a huge file of something else costs nothing.
FileBytes ReadFileBytes(const std::string& path, size_t limit,
                        std::string (*accepts)(const std::string& head));

}  // namespace documents
