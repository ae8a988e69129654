#pragma once

#include <string>

#include "DllFrameworkUtils.h"

// What a platform knows of bundles. No trace, no result but the answer.

// Opens the framework at `path` (UTF-8); null if there is none. Bundles stay open for the life of
// the process, since their functions may be called at any time; opening one again gives the same
// one.
BundleRef OSOpenBundle(const std::string& path);

// The bundle's CFBundleShortVersionString in UTF-8; false if it has none.
bool OSGetBundleVersion(BundleRef bundle, std::string& version);

// The function's address, or null; null also for a null bundle or name.
void* OSFindFunction(BundleRef bundle, const char* name);
