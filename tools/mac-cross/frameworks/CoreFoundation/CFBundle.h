#pragma once

#include <CoreFoundation/CFURL.h>

// Core Foundation, "CFBundleRef"
typedef struct __CFBundle* CFBundleRef;

// Core Foundation, "CFBundleCreate"
CF_EXPORT CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url) SINCE(10.0);
// Core Foundation, "CFBundleGetMainBundle"
CF_EXPORT CFBundleRef CFBundleGetMainBundle(void) SINCE(10.0);
// Core Foundation, "CFBundleGetBundleWithIdentifier"
CF_EXPORT CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier) SINCE(10.0);
// Core Foundation, "CFBundleCopyBundleURL"
CF_EXPORT CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle) SINCE(10.0);
// Core Foundation, "CFBundleCopyPrivateFrameworksURL"
CF_EXPORT CFURLRef CFBundleCopyPrivateFrameworksURL(CFBundleRef bundle) SINCE(10.0);
// Core Foundation, "CFBundleGetInfoDictionary"
CF_EXPORT CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle) SINCE(10.0);
// Core Foundation, "CFBundleGetFunctionPointerForName"
CF_EXPORT void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name) SINCE(10.0);
