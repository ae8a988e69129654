#pragma once

#include "AIUnicodeString.h"

namespace ai {

// Owns a reference to a path of the host; null until a host operation sets it. The object crosses
// the boundary by address, so it consists of one pointer and has no virtual operations. Can be
// moved but not copied. Must not outlive the host message in which it was set. [main-thread]
class FilePath {
public:
    FilePath() = default;
    FilePath(FilePath&& other) noexcept { swap(other); }
    // Exchanges the paths, so `other` frees the old one.
    FilePath& operator=(FilePath&& other) noexcept
    {
        swap(other);
        return *this;
    }
    FilePath(const FilePath&) = delete;
    FilePath& operator=(const FilePath&) = delete;
    // Frees the path, unless it is null or the suite has been released. Never throws.
    ~FilePath();

    // Returns the last component. `displayForm` selects the text to show to the user instead of the
    // one that the file system uses. Throws ai::Error with the host's code, for a null path too.
    UnicodeString GetFileName(bool displayForm) const;

    // Returns the whole path, in the same way.
    UnicodeString GetFullPath(bool displayForm) const;

private:
    void swap(FilePath& other) noexcept;

    void* mImpl = nullptr;
};

}  // namespace ai
