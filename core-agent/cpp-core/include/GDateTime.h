#pragma once

#include <string>

#include "CoreErrorCodes.h"
#include "SDateTime.h"

// A calendar date and time in UTC, with one text form, a fixed subset of ISO 8601:
// "2099-12-31T23:59:59.999Z". Copies are free of each other; no thread is needed.
class GDateTime {
public:
    static constexpr unsigned int kParsingError = MakeErrorCode(1, 0x1014);

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

    static const GDateTime kEmptyDateTime;
    static const GDateTime kMaxDateTime;

    // The present time; empty when the clock can't be read.
    GDateTime();
    GDateTime(const GDateTime& other);
    // Any field values, unchecked.
    GDateTime(const SDateTime& dateTime);
    // As SetFromISO8601String; a failure is reported and leaves it empty.
    GDateTime(const std::string& dateString);
    virtual ~GDateTime();
    GDateTime& operator=(const GDateTime& other);

    // kParsingError leaves the object as it was. An empty text makes it empty. Seconds and fraction
    // are optional; the fraction is a number of milliseconds, 999 at most; what follows is ignored,
    // a zone as well. The day is checked against 1 to 31 alone.
    unsigned int SetFromISO8601String(const std::string& dateString);

    // Empty for an empty object.
    std::string GetAsISO8601String(bool includeTime) const;

    SDateTime GetSDateTime() const;
    bool IsEmpty() const;

    // The fraction is cut to milliseconds, not rounded.
    static GDateTime OSGetCurrentDateTimeUTC();

private:
    SDateTime mDateTime;
};
