#include "HostPlatformTable_Linux.h"

#include <dlfcn.h>

SHostPlatform* FindHostPlatform()
{
    typedef SHostPlatform* (*GetHostPlatformFunction)();
    const auto get =
        reinterpret_cast<GetHostPlatformFunction>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    return get != nullptr ? get() : nullptr;
}
