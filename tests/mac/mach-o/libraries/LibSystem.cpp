#include <fcntl.h>
#include <pthread.h>
#include <strings.h>
#include <sys/time.h>
#include <unistd.h>
#include <unwind.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "libraries/Symbols.h"
#include "libraries/SystemCalls.h"

extern "C" void __stack_chk_fail();

namespace macho {

namespace {

// What the image's functions write at the end of their frames and compare at their end.
uint64_t sStackGuard = 0x00a5c3f196b27e4d;

// macOS's tolower for characters that aren't ASCII: in the "C" locale there are no others.
int ToLower(int character) { return character; }

[[noreturn]] void Unreachable(const char* name)
{
    std::fprintf(stderr, "mach-o: %s was called, though it is never used\n", name);
    std::abort();
}

// All functions are bound at load, and all thread-local variables have another function.
void StubBinder() { Unreachable("dyld_stub_binder"); }
void TlvBootstrap() { Unreachable("_tlv_bootstrap"); }

struct Row {
    const char* name;
    void* address;
};

template <class Function>
void* Address(Function* function)
{
    return reinterpret_cast<void*>(function);
}

#define SAME(function)                  \
    {                                   \
#function, Address(&::function) \
    }

// Made by the first call: the bundle is loaded before this file's variables are set.
const Row* GetRow(const std::string& symbol)
{
    static const Row kFunctions[] = {
        {"__cxa_atexit", Address(&MachOAtExit)},
        {"__error", Address(&MachOError)},
        {"__tolower", Address(&ToLower)},
        {"_tlv_bootstrap", Address(&TlvBootstrap)},
        {"dyld_stub_binder", Address(&StubBinder)},
        {"__stack_chk_guard", &sStackGuard},
        {"open", Address(&MachOOpen)},
        {"pthread_cond_signal", Address(&MachOConditionSignal)},
        {"pthread_cond_timedwait", Address(&MachOConditionTimedWait)},
        {"pthread_cond_wait", Address(&MachOConditionWait)},
        {"pthread_mutex_lock", Address(&MachOMutexLock)},
        {"stat$INODE64", Address(&MachOStat)},
        {"__bzero", Address(&::bzero)},
        {"__stack_chk_fail", Address(&::__stack_chk_fail)},
        {"_Unwind_Resume", Address(&::_Unwind_Resume)},
        {"memchr", Address(static_cast<void* (*)(void*, int, size_t)>(&::memchr))},
        {"strchr", Address(static_cast<char* (*)(char*, int)>(&::strchr))},
        SAME(close),
        SAME(fclose),
        SAME(fflush),
        SAME(fopen),
        SAME(fread),
        SAME(fseek),
        SAME(fseeko),
        SAME(ftello),
        SAME(fwrite),
        SAME(getcwd),
        SAME(gettimeofday),
        SAME(localeconv),
        SAME(memcmp),
        SAME(memcpy),
        SAME(memmove),
        SAME(memset),
        SAME(pthread_cond_destroy),
        SAME(pthread_cond_init),
        SAME(pthread_equal),
        SAME(pthread_mutex_destroy),
        SAME(pthread_mutex_init),
        SAME(pthread_mutex_unlock),
        SAME(pthread_self),
        SAME(snprintf),
        SAME(strcmp),
        SAME(strlen),
        SAME(strtod),
        SAME(strtol),
        SAME(strtoll),
        SAME(strtoull),
        SAME(time),
        SAME(usleep),
        SAME(vsnprintf),
        SAME(write),
    };
    for (const Row& row : kFunctions) {
        if (symbol == row.name) return &row;
    }
    return nullptr;
}

}  // namespace

void* FindInLibSystem(const std::string& symbol)
{
    const Row* const row = GetRow(symbol);
    return row == nullptr ? nullptr : row->address;
}

}  // namespace macho
