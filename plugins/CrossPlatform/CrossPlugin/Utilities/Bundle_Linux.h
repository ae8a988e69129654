#pragma once

#include <map>
#include <string>

#include "DllFrameworkUtils.h"

// A framework as a folder X.framework with the shared object X and Resources/Info.plist.
struct OpaqueBundle {
    void* library;
    std::map<std::string, std::string> information;  // the texts of the property list
};

// Opens the framework at `path` without a trace; null if there is none. Bundles stay open for the
// life of the process, since their functions may be called at any time; opening one again gives the
// same one.
OpaqueBundle* OSOpenBundle(const std::string& path);

// The function's address without a trace, or null.
void* OSFindFunction(BundleRef bundle, const char* name);

// Whether there is anything at `path`.
bool OSIsReachable(const std::string& path);
