#include <CoreServices/CoreServices.h>

#include <cmath>
#include <cstdarg>

#include "CoreFoundationStandIn.h"
#import "References.h"

namespace {

bool gIsTimeSet = false;
double gTime = 0;

NSInteger ComponentOf(NSDateComponents* components, char letter)
{
    switch (letter) {
        case 'y':
            return [components year];
        case 'M':
            return [components month];
        case 'd':
            return [components day];
        case 'H':
            return [components hour];
        case 'm':
            return [components minute];
        case 's':
            return [components second];
        default:
            return [components weekday];
    }
}

}  // namespace

void CoreFoundationStandIn::SetAbsoluteTime(double seconds)
{
    gIsTimeSet = true;
    gTime = seconds;
}

CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date)
{
    return [As<NSDate>(date) timeIntervalSinceReferenceDate];
}

CFAbsoluteTime CFAbsoluteTimeGetCurrent(void)
{
    return gIsTimeSet ? gTime : [NSDate timeIntervalSinceReferenceDate];
}

CFTimeZoneRef CFTimeZoneCreateWithName(CFAllocatorRef, CFStringRef name, Boolean)
{
    if (MustFail(__func__)) return nullptr;
    return Give<CFTimeZoneRef>([[NSTimeZone timeZoneWithName:As<NSString>(name)] retain]);
}

CFCalendarRef CFCalendarCreateWithIdentifier(CFAllocatorRef, CFCalendarIdentifier)
{
    if (MustFail(__func__)) return nullptr;
    return Give<CFCalendarRef>([[NSCalendar alloc] initWithCalendarIdentifier:NSGregorianCalendar]);
}

void CFCalendarSetTimeZone(CFCalendarRef calendar, CFTimeZoneRef zone)
{
    [As<NSCalendar>(calendar) setTimeZone:As<NSTimeZone>(zone)];
}

Boolean CFCalendarDecomposeAbsoluteTime(CFCalendarRef calendar, CFAbsoluteTime time,
                                        const char* components, ...)
{
    if (MustFail(__func__)) return false;
    const NSUInteger units = NSYearCalendarUnit | NSMonthCalendarUnit | NSDayCalendarUnit |
                             NSHourCalendarUnit | NSMinuteCalendarUnit | NSSecondCalendarUnit |
                             NSWeekdayCalendarUnit;
    NSDate* const date = [NSDate dateWithTimeIntervalSinceReferenceDate:std::floor(time)];
    NSDateComponents* const parts = [As<NSCalendar>(calendar) components:units fromDate:date];
    va_list results;
    va_start(results, components);
    for (const char* letter = components; *letter != '\0'; ++letter) {
        *va_arg(results, int*) = static_cast<int>(ComponentOf(parts, *letter));
    }
    va_end(results);
    return true;
}

OSStatus UCConvertCFAbsoluteTimeToUTCDateTime(CFAbsoluteTime time, UTCDateTime* result)
{
    if (MustFail(__func__)) return -50;
    constexpr double kSecondsFrom1904 = 3061152000.0;
    const double seconds = std::floor(time);
    const double total = seconds + kSecondsFrom1904;
    result->highSeconds = static_cast<UInt16>(total / 4294967296.0);
    result->lowSeconds = static_cast<UInt32>(std::fmod(total, 4294967296.0));
    result->fraction = static_cast<UInt16>((time - seconds) * 65536.0);
    return noErr;
}
