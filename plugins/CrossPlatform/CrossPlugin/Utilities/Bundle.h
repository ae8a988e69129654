#pragma once

#include <string>

#include "BundleRef.h"

// The platform's operations on frameworks, without the trace. [main-thread]

// Opens the framework folder at `path` (UTF-8). Returns null if none can be loaded from there.
//
// Bundles remain open until the process ends, because their functions may be called at any time.
// Opening the same framework again returns the same bundle.
BundleRef OSOpenBundle(const std::string& path);

// Copies the bundle's CFBundleShortVersionString (UTF-8) into `version`. Returns false, with
// `version` unchanged, if there is no such text. `bundle` must not be null.
bool OSGetBundleVersion(BundleRef bundle, std::string& version);

// Returns the address of the function, which is valid until the process ends. Null if the bundle
// has no such function, or an argument is null.
void* OSFindFunction(BundleRef bundle, const char* name);
