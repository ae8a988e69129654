#pragma once

namespace CorvantaFileUtils {

// Returns the time at which the content of the file at `path` (UTF-8) was last changed.
//
// The time is in seconds since 1 January 1970 UTC, without fraction, and negative before 1970.
// Returns 0 if it can't be read, or the path is null or not UTF-8. [any thread]
long GetFileModificationDate(const char* path);

}  // namespace CorvantaFileUtils
