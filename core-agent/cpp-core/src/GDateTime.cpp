#include "GDateTime.h"

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <locale>
#include <sstream>

#include "CppCoreMacros.h"

namespace {

typedef int32_t TSInt32;

unsigned int AssignField(short min, short max, int value, short& field)
{
    CHECK_CORE_CONDITION("Miscellaneous", 1,
                         value < static_cast<TSInt32>(min) || value > static_cast<TSInt32>(max),
                         GDateTime::kParsingError);
    field = static_cast<short>(value);
    return CoreErrorCodes::kSuccess;
}

}  // namespace

// The constructor without arguments would read the clock.
const GDateTime GDateTime::kEmptyDateTime{std::string()};
const GDateTime GDateTime::kMaxDateTime{std::string("2099-12-31T23:59:59.999Z")};

SDateTime::SDateTime() : year(0), month(0), day(0), hour(0), minute(0), second(0), millisecond(0) {}

GDateTime::GDateTime() : mDateTime(OSGetCurrentDateTimeUTC().mDateTime) {}

GDateTime::GDateTime(const GDateTime& other) = default;

GDateTime::GDateTime(const SDateTime& dateTime) : mDateTime(dateTime) {}

GDateTime::GDateTime(const std::string& dateString)
{
    const unsigned int code = SetFromISO8601String(dateString);
    if (code != CoreErrorCodes::kSuccess) {
        LogCoreError("Miscellaneous", 1, code, "SetFromISO8601String(dateString)");
    }
}

GDateTime::~GDateTime() = default;

GDateTime& GDateTime::operator=(const GDateTime& other) = default;

// One variable receives all numbers except the fraction and is never reset, so a number that is
// missing at the end of the text gets the value of the number before it. Text that isn't a number
// gives 0.
unsigned int GDateTime::SetFromISO8601String(const std::string& dateString)
{
    SDateTime dateTime;
    if (dateString.empty()) {
        mDateTime = dateTime;
        return CoreErrorCodes::kSuccess;
    }

    std::istringstream ssTime(dateString);
    ssTime.imbue(std::locale::classic());
    int originalValue = 0;

    ssTime >> originalValue;
    CHECK_CORE_CALL("Miscellaneous", 1,
                    AssignField(kMinYear, kMaxYear, originalValue, dateTime.year));
    CHECK_CORE_CONDITION("Miscellaneous", 1, ssTime.peek() != '-', kParsingError);
    ssTime.get();

    ssTime >> originalValue;
    CHECK_CORE_CALL("Miscellaneous", 1,
                    AssignField(kMinMonth, kMaxMonth, originalValue, dateTime.month));
    CHECK_CORE_CONDITION("Miscellaneous", 1, ssTime.peek() != '-', kParsingError);
    ssTime.get();

    ssTime >> originalValue;
    CHECK_CORE_CALL("Miscellaneous", 1, AssignField(kMinDay, kMaxDay, originalValue, dateTime.day));
    CHECK_CORE_CONDITION("Miscellaneous", 1, ssTime.peek() != 'T', kParsingError);
    ssTime.get();

    ssTime >> originalValue;
    CHECK_CORE_CALL("Miscellaneous", 1,
                    AssignField(kMinHour, kMaxHour, originalValue, dateTime.hour));
    CHECK_CORE_CONDITION("Miscellaneous", 1, ssTime.peek() != ':', kParsingError);
    ssTime.get();

    ssTime >> originalValue;
    CHECK_CORE_CALL("Miscellaneous", 1,
                    AssignField(kMinMinute, kMaxMinute, originalValue, dateTime.minute));
    if (ssTime.peek() == ':') {
        ssTime.get();
        ssTime >> originalValue;
        CHECK_CORE_CALL("Miscellaneous", 1,
                        AssignField(kMinSecond, kMaxSecond, originalValue, dateTime.second));
        if (ssTime.peek() == '.') {
            ssTime.get();
            short fraction = 0;
            ssTime >> fraction;
            originalValue = std::min(fraction, kMaxMillisecond);
            CHECK_CORE_CALL(
                "Miscellaneous", 1,
                AssignField(kMinMillisecond, kMaxMillisecond, originalValue, dateTime.millisecond));
        }
    }
    mDateTime = dateTime;
    return CoreErrorCodes::kSuccess;
}

std::string GDateTime::GetAsISO8601String(bool includeTime) const
{
    if (IsEmpty()) return std::string();

    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setfill('0') << std::setw(4) << mDateTime.year << '-' << std::setw(2)
         << mDateTime.month << '-' << std::setw(2) << mDateTime.day;
    if (includeTime) {
        text << 'T' << std::setw(2) << mDateTime.hour << ':' << std::setw(2) << mDateTime.minute
             << ':' << std::setw(2) << mDateTime.second << '.' << std::setw(3)
             << mDateTime.millisecond << 'Z';
    }
    return text.str();
}

SDateTime GDateTime::GetSDateTime() const { return mDateTime; }

bool GDateTime::IsEmpty() const
{
    return mDateTime.year == 0 && mDateTime.month == 0 && mDateTime.day == 0 &&
           mDateTime.hour == 0 && mDateTime.minute == 0 && mDateTime.second == 0 &&
           mDateTime.millisecond == 0;
}
