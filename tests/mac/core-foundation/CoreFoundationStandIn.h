#pragma once

#include <string>

// How a test inspects and controls the stand-in for CoreFoundation. [main-thread]
namespace CoreFoundationStandIn {

#define STAND_IN_EXPORT __attribute__((visibility("default")))

// Returns the number of references returned by a Create or Copy function and not yet released.
STAND_IN_EXPORT long LiveReferences();

// Makes the next call of `function` fail with the result that it has on macOS: null, false or a
// status. "the value of CFURLCopyResourcePropertyForKey" makes that function succeed with null.
STAND_IN_EXPORT void FailNextCall(const std::string& function);

// Makes the folder `path` the main bundle. Until the first call that is the program's own folder.
STAND_IN_EXPORT void SetMainBundle(const std::string& path);

// Makes `path` the private frameworks folder of every bundle; "" for none. Until the first call
// that is the bundle's own folder.
STAND_IN_EXPORT void SetPrivateFrameworks(const std::string& path);

// Makes CFAbsoluteTimeGetCurrent return `seconds`.
STAND_IN_EXPORT void SetAbsoluteTime(double seconds);

}  // namespace CoreFoundationStandIn
