#include "HostPlatformTable_Linux.h"

#include <dlfcn.h>

#include <cstddef>

// The host and the plug-in are compiled separately, so the layout of the table must not change.
static_assert(offsetof(SHostPlatform, beginModalSession) == 0);
static_assert(offsetof(SHostPlatform, showAlert) == sizeof(void*));
static_assert(offsetof(SHostPlatform, privateFrameworksPath) == 2 * sizeof(void*));
static_assert(sizeof(SHostPlatform) == 3 * sizeof(void*));

SHostPlatform* FindHostPlatform()
{
    typedef SHostPlatform* (*GetHostPlatformFunction)();
    const auto get =
        reinterpret_cast<GetHostPlatformFunction>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    return get != nullptr ? get() : nullptr;
}
