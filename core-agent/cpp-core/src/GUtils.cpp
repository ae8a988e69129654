#include "GUtils.h"

#include <sys/time.h>

namespace {

constexpr long kNanosecondsPerSecond = 1000000000;

}  // namespace

void GUtils::FutureMillisecondsToAbsTime(unsigned int milliseconds, timespec& result)
{
    timeval now = {};
    // Can't fail with valid arguments.
    (void)gettimeofday(&now, nullptr);
    result.tv_sec = now.tv_sec + milliseconds / 1000;
    result.tv_nsec = static_cast<long>(now.tv_usec) * 1000 + milliseconds % 1000 * 1000000L;
    if (result.tv_nsec >= kNanosecondsPerSecond) {
        result.tv_nsec -= kNanosecondsPerSecond;
        ++result.tv_sec;
    }
}
