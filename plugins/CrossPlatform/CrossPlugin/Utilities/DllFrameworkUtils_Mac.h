#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

#include "BundleRef_Mac.h"

// Returns the text in UTF-8; "" for null, an empty text or one that can't be converted. Does not
// release `text`. [any thread]
std::string GetStdString(CFStringRef text);
