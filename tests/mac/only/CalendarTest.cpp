#include <gtest/gtest.h>

#include "CFHolder_Mac.h"
#include "GDateTime_Mac.h"
#include "RecordingLog.h"

namespace {

constexpr double kMoment = 631152000.75;  // 2021-01-01T00:00:00.750Z

struct CalendarTest : testing::Test {
    std::string Converted(double time = kMoment) const
    {
        return ConvertToTimeZone(zone.get(), time).GetAsISO8601String(true);
    }
    CFHolder<CFTimeZoneRef> zone{CFTimeZoneCreateWithName(nullptr, CFSTR("GMT"), false)};
    RecordingLog log;
};

TEST_F(CalendarTest, ConvertsATimeToItsParts)
{
    EXPECT_EQ("2021-01-01T00:00:00.750Z", Converted());
    EXPECT_EQ("2000-12-31T23:59:59.500Z", Converted(-0.5));
    EXPECT_EQ("2024-02-29T12:34:56.000Z", Converted(730902896));
    EXPECT_TRUE(log.Reports().empty());
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

}  // namespace
