#pragma once

#include <map>
#include <string>

#include "Bundle.h"

// A framework as a folder X.framework with the shared object X and Resources/Info.plist.
struct OpaqueBundle {
    void* library;
    std::map<std::string, std::string> information;  // the texts of the property list
};

// Whether there is anything at `path`.
bool OSIsReachable(const std::string& path);
