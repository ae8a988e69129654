#include "GDateTime.h"

#include <ctime>

namespace {

constexpr long kNanosecondsPerMillisecond = 1000000;

}  // namespace

GDateTime GDateTime::OSGetCurrentDateTimeUTC()
{
    GDateTime result(kEmptyDateTime);
    timespec now = {};
    std::tm fields = {};
    if (clock_gettime(CLOCK_REALTIME, &now) != 0) return result;
    if (gmtime_r(&now.tv_sec, &fields) == nullptr) return result;

    SDateTime& dateTime = result.mDateTime;
    dateTime.year = static_cast<short>(fields.tm_year + 1900);
    dateTime.month = static_cast<short>(fields.tm_mon + 1);
    dateTime.day = static_cast<short>(fields.tm_mday);
    dateTime.hour = static_cast<short>(fields.tm_hour);
    dateTime.minute = static_cast<short>(fields.tm_min);
    dateTime.second = static_cast<short>(fields.tm_sec);
    dateTime.millisecond = static_cast<short>(now.tv_nsec / kNanosecondsPerMillisecond);
    return result;
}
