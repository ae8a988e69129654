#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "CorvantaFileUtils.h"

namespace CorvantaFileUtils {

// The same for a path that is a string object already; 0 for a null one.
long GetFileModificationDate(CFStringRef path);

}  // namespace CorvantaFileUtils
