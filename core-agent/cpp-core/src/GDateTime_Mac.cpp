#include "GDateTime_Mac.h"

#include <CoreServices/CoreServices.h>

#include "CFHolder_Mac.h"
#include "CppCoreMacros.h"

namespace {

// Logs a failure and returns `isFailure`.
bool Report(bool isFailure, const char* expression, int line)
{
    if (isFailure) {
        ReportCoreError("Miscellaneous", 1, CoreErrorCodes::kError, expression, __FILE__, line);
    }
    return isFailure;
}

#define FAILS(condition, expression) Report(condition, expression, __LINE__)

bool FillRecord(CFTimeZoneRef timeZone, double cfAbsTime, SDateTime& dateTime)
{
    const CFHolder<CFCalendarRef> holder(
        CFCalendarCreateWithIdentifier(kCFAllocatorDefault, kCFGregorianCalendar));
    const CFCalendarRef gregorian = holder.get();
    if (FAILS(gregorian == nullptr, "gregorian == NULL")) return false;
    if (FAILS(timeZone == nullptr, "timeZone == NULL")) return false;
    if (FAILS(cfAbsTime == 0, "cfAbsTime == 0")) return false;
    CFCalendarSetTimeZone(gregorian, timeZone);

    UTCDateTime utc = {};
    const OSStatus status = UCConvertCFAbsoluteTimeToUTCDateTime(cfAbsTime, &utc);
    if (FAILS(status != noErr, "status != noErr")) return false;

    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, era = 0;
    const bool valid = CFCalendarDecomposeAbsoluteTime(gregorian, cfAbsTime, "yMdHmsE", &year,
                                                       &month, &day, &hour, &minute, &second, &era);
    if (FAILS(!valid, "!valid")) return false;

    dateTime.year = static_cast<short>(year);
    dateTime.month = static_cast<short>(month);
    dateTime.day = static_cast<short>(day);
    dateTime.hour = static_cast<short>(hour);
    dateTime.minute = static_cast<short>(minute);
    dateTime.second = static_cast<short>(second);
    dateTime.millisecond = static_cast<short>(utc.fraction / 65536.0 * 1000.0);
    return true;
}

}  // namespace

GDateTime ConvertToTimeZone(CFTimeZoneRef timeZone, double cfAbsTime)
{
    SDateTime dateTime;
    // A failure is already in the log and leaves the record empty.
    (void)FillRecord(timeZone, cfAbsTime, dateTime);
    return GDateTime(dateTime);
}

GDateTime GDateTime::OSGetCurrentDateTimeUTC()
{
    const GDateTime result(kEmptyDateTime);
    const CFHolder<CFTimeZoneRef> holder(
        CFTimeZoneCreateWithName(kCFAllocatorDefault, CFSTR("GMT"), false));
    const CFTimeZoneRef gmtZone = holder.get();
    if (gmtZone == nullptr) {
        LogCoreError("Miscellaneous", 1, CoreErrorCodes::kNullPointer, "(gmtZone) == nullptr");
        return result;
    }
    return ConvertToTimeZone(gmtZone, CFAbsoluteTimeGetCurrent());
}
