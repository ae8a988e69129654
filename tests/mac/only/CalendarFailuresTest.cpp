#include <gtest/gtest.h>

#include "CFHolder_Mac.h"
#include "CoreFoundationStandIn.h"
#include "GDateTime_Mac.h"
#include "RecordingLog.h"

namespace {

constexpr double kTime = 631152000.75;  // 2021-01-01T00:00:00.750Z

struct CalendarFailures : testing::Test {
    std::string Converted(double time = kTime) const
    {
        return ConvertToTimeZone(zone.get(), time).GetAsISO8601String(true);
    }
    void ExpectReport(const std::string& expression, unsigned int code = CoreErrorCodes::kError)
    {
        ASSERT_EQ(1U, log.Reports().size());
        EXPECT_EQ(expression, log.Reports()[0].expression);
        EXPECT_EQ(code, log.Reports()[0].code);
        EXPECT_EQ("Miscellaneous", log.Reports()[0].category);
    }

    CFHolder<CFTimeZoneRef> zone{CFTimeZoneCreateWithName(nullptr, CFSTR("GMT"), false)};
    const long before = CoreFoundationStandIn::LiveReferences();
    RecordingLog log;
};

TEST_F(CalendarFailures, ConversionLeaksNoReference)
{
    EXPECT_EQ("2021-01-01T00:00:00.750Z", Converted());
    EXPECT_EQ(before, CoreFoundationStandIn::LiveReferences());
}

TEST_F(CalendarFailures, ReadsThePresentTimeFromTheClock)
{
    CoreFoundationStandIn::SetAbsoluteTime(kTime);
    EXPECT_EQ("2021-01-01T00:00:00.750Z", GDateTime().GetAsISO8601String(true));
}

TEST_F(CalendarFailures, ReportsAMissingCalendar)
{
    CoreFoundationStandIn::FailNextCall("CFCalendarCreateWithIdentifier");
    EXPECT_EQ("", Converted());
    ExpectReport("gregorian == NULL");
}

TEST_F(CalendarFailures, ReportsAMissingZone)
{
    EXPECT_TRUE(ConvertToTimeZone(nullptr, kTime).IsEmpty());
    ExpectReport("timeZone == NULL");
    EXPECT_EQ(before, CoreFoundationStandIn::LiveReferences());
}

TEST_F(CalendarFailures, ReportsATimeOfZero)
{
    EXPECT_EQ("", Converted(0));
    ExpectReport("cfAbsTime == 0");
}

TEST_F(CalendarFailures, ReportsAFailedConversionOfTheFraction)
{
    CoreFoundationStandIn::FailNextCall("UCConvertCFAbsoluteTimeToUTCDateTime");
    EXPECT_EQ("", Converted());
    ExpectReport("status != noErr");
}

TEST_F(CalendarFailures, ReportsAFailedConversionToParts)
{
    CoreFoundationStandIn::FailNextCall("CFCalendarDecomposeAbsoluteTime");
    EXPECT_EQ("", Converted());
    ExpectReport("!valid");
    EXPECT_EQ(before, CoreFoundationStandIn::LiveReferences());
}

TEST_F(CalendarFailures, ReportsAFailureToCreateTheGMTZone)
{
    // The failure must hit the call under test: the log reads the same clock for its own line.
    CoreFoundationStandIn::FailNextCall("CFTimeZoneCreateWithName");
    EXPECT_TRUE(GDateTime::OSGetCurrentDateTimeUTC().IsEmpty());
    ExpectReport("(gmtZone) == nullptr", CoreErrorCodes::kNullPointer);
}

}  // namespace
