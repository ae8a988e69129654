#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

struct CFReleaser {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};

// Owns one reference, as a function with "Create" or "Copy" in its name gives it; empty for null.
template <class Ref>
using CFHolder = std::unique_ptr<std::remove_pointer_t<Ref>, CFReleaser>;
