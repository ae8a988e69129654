#pragma once

#include <map>
#include <string>

#include "Bundle.h"

// An open framework: the folder X.framework with the shared object X and Resources/Info.plist.
struct OpaqueBundle {
    void* library;                                   // of dlopen
    std::map<std::string, std::string> information;  // texts of the property list, by key
};

// Returns true if a file, folder or anything else exists at `path` (UTF-8). [any thread]
bool OSIsReachable(const std::string& path);
