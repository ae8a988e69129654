#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

struct CFReleaser {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};

// Owns one reference to a CoreFoundation object and releases it at the end of the scope.
//
// Construct it from the result of a function with "Create" or "Copy" in its name, which the caller
// must release; a "Get" result belongs to another owner. A null reference makes an empty holder.
// Copies of the bare reference are valid while the holder lives. [any thread, one at a time]
template <class Ref>
using CFHolder = std::unique_ptr<std::remove_pointer_t<Ref>, CFReleaser>;
