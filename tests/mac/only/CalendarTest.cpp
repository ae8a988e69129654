#include <gtest/gtest.h>

#include "CFHolder_Mac.h"
#include "CoreFoundationStandIn.h"
#include "GDateTime_Mac.h"
#include "RecordingLog.h"

namespace {

constexpr double kMoment = 631152000.75;  // 2021-01-01T00:00:00.750Z

struct CalendarTest : testing::Test {
    std::string Converted(double time = kMoment)
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

TEST_F(CalendarTest, ConvertsATimeToItsParts)
{
    EXPECT_EQ("2021-01-01T00:00:00.750Z", Converted());
    EXPECT_EQ("2000-12-31T23:59:59.500Z", Converted(-0.5));
    EXPECT_EQ("2024-02-29T12:34:56.000Z", Converted(730902896));
    EXPECT_TRUE(log.Reports().empty());
    EXPECT_EQ(before, CoreFoundationStandIn::LiveReferences());
}

TEST_F(CalendarTest, TruncatesTheFractionToMilliseconds)
{
    EXPECT_EQ("2021-01-01T00:00:00.999Z", Converted(631152000.9999));
    EXPECT_EQ("2021-01-01T00:00:00.000Z", Converted(631152000.0009));
}

TEST_F(CalendarTest, ConvertsToTheGivenTimeZone)
{
    zone.reset(CFTimeZoneCreateWithName(nullptr, CFSTR("Asia/Tokyo"), false));
    EXPECT_EQ("2021-01-01T09:00:00.750Z", Converted());
}

TEST_F(CalendarTest, ReadsThePresentTimeFromTheClock)
{
    CoreFoundationStandIn::SetAbsoluteTime(kMoment);
    EXPECT_EQ("2021-01-01T00:00:00.750Z", GDateTime().GetAsISO8601String(true));
}

TEST_F(CalendarTest, ReportsAMissingCalendar)
{
    CoreFoundationStandIn::FailNextCall("CFCalendarCreateWithIdentifier");
    EXPECT_EQ("", Converted());
    ExpectReport("gregorian == NULL");
}

TEST_F(CalendarTest, ReportsAMissingZone)
{
    EXPECT_TRUE(ConvertToTimeZone(nullptr, kMoment).IsEmpty());
    ExpectReport("timeZone == NULL");
    EXPECT_EQ(before, CoreFoundationStandIn::LiveReferences());
}

TEST_F(CalendarTest, ReportsATimeOfZero)
{
    EXPECT_EQ("", Converted(0));
    ExpectReport("cfAbsTime == 0");
}

TEST_F(CalendarTest, ReportsAFailedConversionOfTheFraction)
{
    CoreFoundationStandIn::FailNextCall("UCConvertCFAbsoluteTimeToUTCDateTime");
    EXPECT_EQ("", Converted());
    ExpectReport("status != noErr");
}

TEST_F(CalendarTest, ReportsAFailedConversionToParts)
{
    CoreFoundationStandIn::FailNextCall("CFCalendarDecomposeAbsoluteTime");
    EXPECT_EQ("", Converted());
    ExpectReport("!valid");
    EXPECT_EQ(before, CoreFoundationStandIn::LiveReferences());
}

TEST_F(CalendarTest, ReportsAFailureToCreateTheGMTZone)
{
    // The failure must hit the call under test: the log reads the same clock for its own line.
    CoreFoundationStandIn::FailNextCall("CFTimeZoneCreateWithName");
    EXPECT_TRUE(GDateTime::OSGetCurrentDateTimeUTC().IsEmpty());
    ExpectReport("(gmtZone) == nullptr", CoreErrorCodes::kNullPointer);
}

}  // namespace
