#pragma once

#include <cstdint>

// Those functions of libSystem that differ from the C library of this machine, with the types that
// macOS has for x86_64.
namespace macho {

// macOS's struct stat with inode numbers of 64 bits.
struct DarwinStat {
    int32_t device;
    uint16_t mode;
    uint16_t linkCount;
    uint64_t inode;
    uint32_t user;
    uint32_t group;
    int32_t rawDevice;
    int32_t padding;
    int64_t times[8];  // seconds and nanoseconds: access, modification, status change, birth
    int64_t size;
    int64_t blocks;
    int32_t blockSize;
    uint32_t flags;
    uint32_t generation;
    int32_t spare;
    int64_t spares[2];
};
static_assert(sizeof(DarwinStat) == 144, "the layout of macOS");

// Of macOS's <fcntl.h>. The flags of the access mode are the same on both systems.
enum DarwinOpenFlags : int {
    kDarwinNonBlock = 0x4,
    kDarwinAppend = 0x8,
    kDarwinCreate = 0x200,
    kDarwinTruncate = 0x400,
    kDarwinExclusive = 0x800,
    kDarwinCloseOnExec = 0x1000000,
};

}  // namespace macho

extern "C" {
int MachOStat(const char* path, macho::DarwinStat* status);
int MachOOpen(const char* path, int flags, ...);

// errno. The plug-in compares it with EINTR and ERANGE, which are the same numbers on macOS; others
// are not converted.
int* MachOError();

// macOS marks a mutex or a condition that PTHREAD_..._INITIALIZER made with a number, where this
// machine has zeros. Both are larger on macOS.
int MachOMutexLock(void* mutex);
int MachOConditionSignal(void* condition);
int MachOConditionWait(void* condition, void* mutex);
int MachOConditionTimedWait(void* condition, void* mutex, const void* until);

// Keeps the function for RunAtExit.
int MachOAtExit(void (*function)(void*), void* argument, void* image);
}

namespace macho {

// Runs the functions that the image registered for its end, the last one first. Returns how many.
int RunAtExit();

}  // namespace macho
