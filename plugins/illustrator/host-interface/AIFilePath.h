#pragma once

#include "AIUnicodeString.h"

namespace ai {

// A host path, held by its one reference; null until a host operation fills it in. The object
// crosses the boundary by address, so it has one pointer and no virtual operations. Movable, not
// copyable.
class FilePath {
public:
    FilePath() = default;
    FilePath(FilePath&& other) noexcept { swap(other); }
    FilePath& operator=(FilePath&& other) noexcept
    {
        swap(other);
        return *this;
    }
    FilePath(const FilePath&) = delete;
    FilePath& operator=(const FilePath&) = delete;
    ~FilePath();

    // The last component; throws ai::Error with the host's code.
    UnicodeString GetFileName(bool displayForm) const;

    // The whole path; throws ai::Error with the host's code.
    UnicodeString GetFullPath(bool displayForm) const;

private:
    void swap(FilePath& other) noexcept;

    void* mImpl = nullptr;
};

}  // namespace ai
