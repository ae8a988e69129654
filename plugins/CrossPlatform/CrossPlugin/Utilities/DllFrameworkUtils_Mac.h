#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

#include "DllFrameworkUtils.h"

// The text in UTF-8; empty for a null or empty one.
std::string GetStdString(CFStringRef text);

// A bundle is a CFBundle here; the common headers know it by a name of their own.
inline CFBundleRef ToCFBundle(BundleRef bundle) { return reinterpret_cast<CFBundleRef>(bundle); }
inline BundleRef ToBundle(CFBundleRef bundle) { return reinterpret_cast<BundleRef>(bundle); }
