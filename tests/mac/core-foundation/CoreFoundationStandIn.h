#pragma once

#include <string>

// What a test may ask of the stand-in and do to it. Main thread only.
namespace CoreFoundationStandIn {

#define STAND_IN_EXPORT __attribute__((visibility("default")))

// References given out by a Create or Copy and not released yet.
STAND_IN_EXPORT long LiveReferences();

// The next call of that function fails as it may on macOS: null, false, or a status.
STAND_IN_EXPORT void FailNextCall(const std::string& function);

// The folder X.app that counts as the host's bundle from now on; at first the program's own folder.
STAND_IN_EXPORT void SetMainBundle(const std::string& path);

// What CFAbsoluteTimeGetCurrent answers from now on.
STAND_IN_EXPORT void SetAbsoluteTime(double seconds);

}  // namespace CoreFoundationStandIn
