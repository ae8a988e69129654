#pragma once

namespace CorvantaFileUtils {

// The time of the last change of the file's content, in whole seconds since 1 January 1970, UTC,
// fractions cut off. 0 for whatever can't be read, a null path and one that isn't UTF-8 included.
long GetFileModificationDate(const char* path);

}  // namespace CorvantaFileUtils
