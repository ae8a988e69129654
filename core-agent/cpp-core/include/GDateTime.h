#pragma once

#include <string>

#include "CoreErrorCodes.h"
#include "SDateTime.h"

// A date and time in UTC. Its text form is a subset of ISO 8601: "2099-12-31T23:59:59.999Z".
//
// A plain value: copies are independent. [any thread, one object on one thread at a time]
class GDateTime {
public:
    static constexpr unsigned int kParsingError = MakeErrorCode(1, 0x1014);

    // The bounds, both inclusive, of what SetFromISO8601String accepts.
    static constexpr short kMinYear = 0;
    static constexpr short kMaxYear = 9999;
    static constexpr short kMinMonth = 1;
    static constexpr short kMaxMonth = 12;
    static constexpr short kMinDay = 1;
    static constexpr short kMaxDay = 31;
    static constexpr short kMinHour = 0;
    static constexpr short kMaxHour = 23;
    static constexpr short kMinMinute = 0;
    static constexpr short kMaxMinute = 59;
    static constexpr short kMinSecond = 0;
    static constexpr short kMaxSecond = 59;
    static constexpr short kMinMillisecond = 0;
    static constexpr short kMaxMillisecond = 999;

    // Initialised when the program starts, so other global objects' constructors can't use them.
    static const GDateTime kEmptyDateTime;
    static const GDateTime kMaxDateTime;  // 2099-12-31T23:59:59.999Z

    // The current time; empty if the clock can't be read.
    GDateTime();
    GDateTime(const GDateTime& other);
    // Takes the fields as they are, without a check.
    GDateTime(const SDateTime& dateTime);
    // Parses like SetFromISO8601String. The object is empty if that fails.
    GDateTime(const std::string& dateString);
    virtual ~GDateTime();
    GDateTime& operator=(const GDateTime& other);

    // Sets the fields from a text; an empty text makes the object empty. Returns 0, or logs the
    // failure, returns kParsingError and leaves the object unchanged.
    //
    // Seconds and fraction are optional and default to 0. The fraction is a number of milliseconds:
    // ".5" is 5 ms, and numbers above 999 become 999. Whatever follows is ignored, including a time
    // zone. Each field must be within its bounds; the calendar is not checked, so 31 February is
    // accepted.
    unsigned int SetFromISO8601String(const std::string& dateString);

    // Returns "YYYY-MM-DD", with `includeTime` followed by "Thh:mm:ss.mmmZ"; "" if empty.
    std::string GetAsISO8601String(bool includeTime) const;

    SDateTime GetSDateTime() const;
    // True if all fields are 0.
    bool IsEmpty() const;

    // Returns the current time, truncated to milliseconds; empty if the clock can't be read.
    static GDateTime OSGetCurrentDateTimeUTC();

private:
    SDateTime mDateTime;
};
