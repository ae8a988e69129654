#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "CorvantaFileUtils.h"

namespace CorvantaFileUtils {

// The same for a path that is a string object, which is not released. Returns 0 for null.
long GetFileModificationDate(CFStringRef path);

}  // namespace CorvantaFileUtils
