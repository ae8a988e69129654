#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

#include "base/FileDescriptor.h"

namespace docfonts {

// A temporary file without a name: the system removes it with the process, however that ends. It
// keeps the first error, after which all calls do nothing. Not thread-safe.
class SpillFile {
public:
    // folder   where its bytes are, with a slash at the end; "" for the current folder
    explicit SpillFile(const std::string& folder);

    // Returns the position of the bytes in the file. They may remain in memory.
    uint64_t Append(std::string_view bytes);

    // Changes bytes that were appended before.
    void Replace(uint64_t position, std::string_view bytes);

    // Fills `buffer`, up to `size` bytes. Returns how many there were, 0 behind the last.
    size_t Read(uint64_t position, char* buffer, size_t size);

    const std::error_code& GetError() const { return mError; }

private:
    void Flush();

    base::FileDescriptor mFile;
    uint64_t mSize = 0;   // without those of the buffer
    std::string mBuffer;  // not yet in the file
    std::error_code mError;
};

}  // namespace docfonts
