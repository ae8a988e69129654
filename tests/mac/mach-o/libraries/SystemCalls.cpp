#include "libraries/SystemCalls.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr uint64_t kStaticMutex = 0x32AAABA7;
constexpr uint64_t kStaticCondition = 0x3CB0B1BB;

template <class Object>
Object* Prepare(void* object, uint64_t mark)
{
    static_assert(sizeof(pthread_mutex_t) <= 64 && sizeof(pthread_cond_t) <= 48,
                  "not larger than on macOS");
    auto* const first = static_cast<std::atomic<uint64_t>*>(object);
    // Only one of several threads replaces the mark.
    (void)first->compare_exchange_strong(mark, 0);
    return static_cast<Object*>(object);
}

struct AtExitFunction {
    void (*function)(void*);
    void* argument;
};

std::vector<AtExitFunction>& AtExitFunctions()
{
    // Never destroyed, because this module's own variables end before its last function runs.
    static auto* const functions = new std::vector<AtExitFunction>;
    return *functions;
}

}  // namespace

int MachOStat(const char* path, macho::DarwinStat* result)
{
    struct stat status;
    if (stat(path, &status) != 0) return -1;
    *result = {};
    result->device = static_cast<int32_t>(status.st_dev);
    result->mode = static_cast<uint16_t>(status.st_mode);
    result->linkCount = static_cast<uint16_t>(status.st_nlink);
    result->inode = status.st_ino;
    result->user = status.st_uid;
    result->group = status.st_gid;
    result->rawDevice = static_cast<int32_t>(status.st_rdev);
    const timespec times[] = {status.st_atim, status.st_mtim, status.st_ctim, status.st_ctim};
    for (size_t index = 0; index < 4; ++index) {
        result->times[2 * index] = times[index].tv_sec;
        result->times[2 * index + 1] = times[index].tv_nsec;
    }
    result->size = status.st_size;
    result->blocks = status.st_blocks;
    result->blockSize = static_cast<int32_t>(status.st_blksize);
    return 0;
}

int MachOOpen(const char* path, int flags, ...)
{
    constexpr std::pair<int, int> kFlags[] = {
        {macho::kDarwinNonBlock, O_NONBLOCK}, {macho::kDarwinAppend, O_APPEND},
        {macho::kDarwinCreate, O_CREAT},      {macho::kDarwinTruncate, O_TRUNC},
        {macho::kDarwinExclusive, O_EXCL},    {macho::kDarwinCloseOnExec, O_CLOEXEC},
    };
    int converted = flags & O_ACCMODE;
    int rest = flags & ~O_ACCMODE;
    for (const auto& [darwin, own] : kFlags) {
        if ((flags & darwin) != 0) converted |= own;
        rest &= ~darwin;
    }
    if (rest != 0) {
        errno = EINVAL;  // a flag that this function doesn't know
        return -1;
    }
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (converted & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return open(path, converted, mode);
}

int* MachOError() { return &errno; }

int MachOMutexLock(void* mutex)
{
    return pthread_mutex_lock(Prepare<pthread_mutex_t>(mutex, kStaticMutex));
}

int MachOConditionSignal(void* condition)
{
    return pthread_cond_signal(Prepare<pthread_cond_t>(condition, kStaticCondition));
}

int MachOConditionWait(void* condition, void* mutex)
{
    return pthread_cond_wait(Prepare<pthread_cond_t>(condition, kStaticCondition),
                             Prepare<pthread_mutex_t>(mutex, kStaticMutex));
}

int MachOConditionTimedWait(void* condition, void* mutex, const void* until)
{
    const int error = pthread_cond_timedwait(Prepare<pthread_cond_t>(condition, kStaticCondition),
                                             Prepare<pthread_mutex_t>(mutex, kStaticMutex),
                                             static_cast<const timespec*>(until));
    constexpr int kDarwinTimedOut = 60;
    return error == ETIMEDOUT ? kDarwinTimedOut : error;
}

int MachOAtExit(void (*function)(void*), void* argument, void*)
{
    AtExitFunctions().push_back({function, argument});
    return 0;
}

int macho::RunAtExit()
{
    int count = 0;
    // A function may register another one.
    while (!AtExitFunctions().empty()) {
        const AtExitFunction last = AtExitFunctions().back();
        AtExitFunctions().pop_back();
        last.function(last.argument);
        ++count;
    }
    return count;
}
