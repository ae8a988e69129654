#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "BundleRef.h"

// Convert between the two names of the same pointer. No reference is taken or released.
inline CFBundleRef ToCFBundle(BundleRef bundle) { return reinterpret_cast<CFBundleRef>(bundle); }
inline BundleRef ToBundle(CFBundleRef bundle) { return reinterpret_cast<BundleRef>(bundle); }
