#include <gtest/gtest.h>

#include <string>

#include "GDateTime.h"

namespace {

SDateTime Fields(short year, short month, short day, short hour, short minute, short second,
                 short millisecond)
{
    SDateTime fields;
    fields.year = year;
    fields.month = month;
    fields.day = day;
    fields.hour = hour;
    fields.minute = minute;
    fields.second = second;
    fields.millisecond = millisecond;
    return fields;
}

void ExpectFields(const SDateTime& fields, const SDateTime& expected)
{
    EXPECT_EQ(expected.year, fields.year);
    EXPECT_EQ(expected.month, fields.month);
    EXPECT_EQ(expected.day, fields.day);
    EXPECT_EQ(expected.hour, fields.hour);
    EXPECT_EQ(expected.minute, fields.minute);
    EXPECT_EQ(expected.second, fields.second);
    EXPECT_EQ(expected.millisecond, fields.millisecond);
}

struct ReadableDate {
    const char* name;
    const char* text;
    SDateTime fields;
};

void PrintTo(const ReadableDate& row, std::ostream* out) { *out << row.text; }

class DateParse : public testing::TestWithParam<ReadableDate> {};

TEST_P(DateParse, SetsTheFields)
{
    GDateTime date(Fields(1, 1, 1, 1, 1, 1, 1));
    EXPECT_EQ(CoreErrorCodes::kSuccess, date.SetFromISO8601String(GetParam().text));
    ExpectFields(date.GetSDateTime(), GetParam().fields);
    ExpectFields(GDateTime(std::string(GetParam().text)).GetSDateTime(), GetParam().fields);
}

const ReadableDate kReadableDates[] = {
    {"Whole", "2099-12-31T23:59:59.999Z", Fields(2099, 12, 31, 23, 59, 59, 999)},
    {"WithoutSeconds", "2001-02-03T04:05", Fields(2001, 2, 3, 4, 5, 0, 0)},
    {"WithoutFraction", "2001-02-03T04:05:06", Fields(2001, 2, 3, 4, 5, 6, 0)},
    {"FractionIsANumber", "2001-02-03T04:05:06.5Z", Fields(2001, 2, 3, 4, 5, 6, 5)},
    {"FractionWithZeros", "2001-02-03T04:05:06.050", Fields(2001, 2, 3, 4, 5, 6, 50)},
    {"FractionIsCapped", "2001-02-03T04:05:06.1000", Fields(2001, 2, 3, 4, 5, 6, 999)},
    {"FractionBeyondSixteenBits", "2001-02-03T04:05:06.123456", Fields(2001, 2, 3, 4, 5, 6, 999)},
    {"FractionMissing", "2001-02-03T04:05:06.", Fields(2001, 2, 3, 4, 5, 6, 0)},
    {"FractionIsNoNumber", "2001-02-03T04:05:06.Z", Fields(2001, 2, 3, 4, 5, 6, 0)},
    {"Zone", "2001-02-03T04:05:06+02:00", Fields(2001, 2, 3, 4, 5, 6, 0)},
    {"ZoneAfterMinutes", "2001-02-03T04:05+02:00", Fields(2001, 2, 3, 4, 5, 0, 0)},
    {"ZoneAfterFraction", "2001-02-03T04:05:06.7+02:00", Fields(2001, 2, 3, 4, 5, 6, 7)},
    {"AnyTextAfterSeconds", "2001-02-03T04:05:06 and so on", Fields(2001, 2, 3, 4, 5, 6, 0)},
    {"NoCalendarCheck", "2023-02-31T00:00", Fields(2023, 2, 31, 0, 0, 0, 0)},
    {"YearZero", "0000-01-01T00:00", Fields(0, 1, 1, 0, 0, 0, 0)},
    {"GreatestYear", "9999-12-31T23:59:59.999Z", Fields(9999, 12, 31, 23, 59, 59, 999)},
    {"ShortNumbers", "1-2-3T4:5:6.7", Fields(1, 2, 3, 4, 5, 6, 7)},
    {"Spaces", " 2001- 2- 3T 4: 5: 6. 7", Fields(2001, 2, 3, 4, 5, 6, 7)},
    {"Signs", "+2001-+2-+3T+4:+5:+6.+7", Fields(2001, 2, 3, 4, 5, 6, 7)},
    {"LeadingZeros", "02001-002-0003T00004:0000005", Fields(2001, 2, 3, 4, 5, 0, 0)},
    {"MinuteMissingAtTheEnd", "2001-02-03T04:", Fields(2001, 2, 3, 4, 4, 0, 0)},
    {"SecondMissingAtTheEnd", "2001-02-03T04:05:", Fields(2001, 2, 3, 4, 5, 5, 0)},
    {"MinuteThatIsNoNumber", "2001-02-03T04:xx", Fields(2001, 2, 3, 4, 0, 0, 0)},
    {"MinuteThatIsNoNumberEndsTheText", "2001-02-03T04:xx:06", Fields(2001, 2, 3, 4, 0, 0, 0)},
    {"SecondThatIsNoNumber", "2001-02-03T04:05:xx.7", Fields(2001, 2, 3, 4, 5, 0, 0)},
    {"Empty", "", SDateTime()},
};

INSTANTIATE_TEST_SUITE_P(Texts, DateParse, testing::ValuesIn(kReadableDates),
                         [](const auto& row) { return std::string(row.param.name); });

class DateParseOfFaulty : public testing::TestWithParam<const char*> {};

TEST_P(DateParseOfFaulty, FailsAndDoesNotChangeTheObject)
{
    const SDateTime before = Fields(1999, 8, 7, 6, 5, 4, 3);
    GDateTime date(before);
    EXPECT_EQ(GDateTime::kParsingError, date.SetFromISO8601String(GetParam()));
    ExpectFields(date.GetSDateTime(), before);
    EXPECT_TRUE(GDateTime(std::string(GetParam())).IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DateParseOfFaulty,
    testing::Values("2001-02-03", "2001-02-03T", "2001-02-03T04", "2001-02", "2001-", "2001",
                    "2001-13-01T00:00", "2001-00-01T00:00", "2001-01-00T00:00", "2001-01-32T00:00",
                    "2001-01-01T24:00", "2001-01-01T-1:00", "2001-01-01T00:60", "2001-01-01T00:-1",
                    "2001-01-01T00:00:60", "2001-01-01T00:00:-1", "2001-01-01T00:00:00.-1",
                    "12345-01-01T00:00", "10000-01-01T00:00", "-1-01-01T00:00",
                    "99999999999-01-01T00:00", " ", "x", "-", "T", "2001 -02-03T04:05",
                    "2001-02-03t04:05", "2001-02-03 04:05", "2001-02-03T 04", "2001-xx-03T04:05",
                    "2001-02-xxT04:05", "2001-02-03Txx:05", "20010203T0405"));

TEST(DateTime, LaterParseReplacesAllFields)
{
    GDateTime date(Fields(1, 1, 1, 1, 1, 1, 1));
    ASSERT_EQ(CoreErrorCodes::kSuccess, date.SetFromISO8601String("2001-02-03T04:05"));
    EXPECT_EQ(0, date.GetSDateTime().second);
    EXPECT_EQ(0, date.GetSDateTime().millisecond);
}

TEST(DateTime, BoundsHaveTheirValues)
{
    EXPECT_EQ(0, GDateTime::kMinYear);
    EXPECT_EQ(9999, GDateTime::kMaxYear);
    EXPECT_EQ(1, GDateTime::kMinMonth);
    EXPECT_EQ(12, GDateTime::kMaxMonth);
    EXPECT_EQ(1, GDateTime::kMinDay);
    EXPECT_EQ(31, GDateTime::kMaxDay);
    EXPECT_EQ(0, GDateTime::kMinHour);
    EXPECT_EQ(23, GDateTime::kMaxHour);
    EXPECT_EQ(0, GDateTime::kMinMinute);
    EXPECT_EQ(59, GDateTime::kMaxMinute);
    EXPECT_EQ(0, GDateTime::kMinSecond);
    EXPECT_EQ(59, GDateTime::kMaxSecond);
    EXPECT_EQ(0, GDateTime::kMinMillisecond);
    EXPECT_EQ(999, GDateTime::kMaxMillisecond);
}

}  // namespace
