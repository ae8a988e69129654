// Functions of the system that the plug-in calls, replaced for the whole program: they do what they
// always do unless plugin_code says otherwise. Part of the executable alone, so that the plug-in's
// calls come here.

#include <dirent.h>
#include <dlfcn.h>
#include <time.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

#include "model/PluginCode.h"

#define REPLACEMENT __attribute__((visibility("default")))

REPLACEMENT void* operator new(std::size_t size)
{
    if (headless::plugin_code::CountAllocation()) throw std::bad_alloc();
    if (void* const memory = std::malloc(size > 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}

REPLACEMENT void* operator new[](std::size_t size) { return operator new(size); }

REPLACEMENT void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (headless::plugin_code::CountAllocation()) return nullptr;
    return std::malloc(size > 0 ? size : 1);
}

REPLACEMENT void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return operator new(size, nothrow);
}

REPLACEMENT void operator delete(void* memory) noexcept { std::free(memory); }
REPLACEMENT void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
REPLACEMENT void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
REPLACEMENT void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
REPLACEMENT void operator delete[](void* memory) noexcept { std::free(memory); }
REPLACEMENT void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

extern "C" REPLACEMENT time_t time(time_t* out) noexcept
{
    timespec now = {};
    (void)clock_gettime(CLOCK_REALTIME, &now);  // fails for an unknown clock only
    const time_t seconds = now.tv_sec + headless::plugin_code::GetClockOffset();
    if (out != nullptr) *out = seconds;
    return seconds;
}

extern "C" REPLACEMENT DIR* opendir(const char* path)
{
    if (headless::plugin_code::AreProcessesHidden() && std::strcmp(path, "/proc") == 0) {
        errno = ENOENT;
        return nullptr;
    }
    using Function = DIR* (*)(const char*);
    static const auto sReal = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "opendir"));
    return sReal(path);
}
