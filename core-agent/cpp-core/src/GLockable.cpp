#include "GLockable.h"

#include <algorithm>

#include "GSystem.h"

namespace {

constexpr unsigned int kPollMilliseconds = 50;

}  // namespace

GLockable::~GLockable() = default;

unsigned int GLockable::TryLockWithTimeout(unsigned int milliseconds)
{
    if (milliseconds == 0) return TryLock();

    unsigned int result = CoreErrorCodes::kSuccess;
    unsigned int remaining = milliseconds;
    while (remaining != 0) {
        result = TryLock();
        if (result != kLockBusyErr) break;
        const unsigned int pause = std::min(kPollMilliseconds, remaining);
        GSystem::OSSleep(pause);
        remaining -= pause;
    }
    return result;
}
