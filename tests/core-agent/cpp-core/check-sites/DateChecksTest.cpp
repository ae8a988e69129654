#include "ExpectedReport.h"
#include "GDateTime.h"

namespace {

constexpr char kDateFile[] = "core-agent/cpp-core/src/GDateTime.";
constexpr char kName[] = "GDateTime::kParsingError";
constexpr unsigned int kCode = GDateTime::kParsingError;

ExpectedReport Parsing(const char* expression)
{
    return {"Miscellaneous", expression, kCode, 1, kName, kDateFile};
}

struct FaultyDate {
    const char* name;
    const char* text;
    std::vector<const char*> expressions;
};

void PrintTo(const FaultyDate& row, std::ostream* out) { *out << row.text; }

constexpr char kBounds[] = "value < static_cast<TSInt32>(min) || value > static_cast<TSInt32>(max)";

class DateChecks : public testing::TestWithParam<FaultyDate> {
protected:
    std::vector<ExpectedReport> Expected() const
    {
        std::vector<ExpectedReport> expected;
        for (const char* const expression : GetParam().expressions) {
            expected.push_back(Parsing(expression));
        }
        return expected;
    }
    RecordingLog log;
};

TEST_P(DateChecks, FailedParseIsReportedByEachCheckFromTheInnermost)
{
    GDateTime date(SDateTime{});
    EXPECT_EQ(kCode, date.SetFromISO8601String(GetParam().text));
    EXPECT_TRUE(date.IsEmpty());
    ExpectReports(log.Reports(), Expected());
}

TEST_P(DateChecks, ConstructorAddsAReportOfItsOwn)
{
    const GDateTime date{std::string(GetParam().text)};
    EXPECT_TRUE(date.IsEmpty());
    std::vector<ExpectedReport> expected = Expected();
    expected.push_back(Parsing("SetFromISO8601String(dateString)"));
    ExpectReports(log.Reports(), expected);
}

const FaultyDate kFaultyDates[] = {
    {"Year",
     "12345-01-01T00:00",
     {kBounds, "AssignField(kMinYear, kMaxYear, originalValue, dateTime.year)"}},
    {"Month",
     "2001-13-01T00:00",
     {kBounds, "AssignField(kMinMonth, kMaxMonth, originalValue, dateTime.month)"}},
    {"Day",
     "2001-01-32T00:00",
     {kBounds, "AssignField(kMinDay, kMaxDay, originalValue, dateTime.day)"}},
    {"Hour",
     "2001-01-01T24:00",
     {kBounds, "AssignField(kMinHour, kMaxHour, originalValue, dateTime.hour)"}},
    {"Minute",
     "2001-01-01T00:60",
     {kBounds, "AssignField(kMinMinute, kMaxMinute, originalValue, dateTime.minute)"}},
    {"Second",
     "2001-01-01T00:00:60",
     {kBounds, "AssignField(kMinSecond, kMaxSecond, originalValue, dateTime.second)"}},
    {"Millisecond",
     "2001-01-01T00:00:00.-1",
     {kBounds,
      "AssignField(kMinMillisecond, kMaxMillisecond, originalValue, dateTime.millisecond)"}},
    {"MonthZero",
     "2001-00-01T00:00",
     {kBounds, "AssignField(kMinMonth, kMaxMonth, originalValue, dateTime.month)"}},
    {"EndsAfterTheDay", "2001-02-03", {"ssTime.peek() != 'T'"}},
    {"EndsAfterTheT", "2001-02-03T", {"ssTime.peek() != ':'"}},
    {"WrongSeparatorAfterTheYear", "2001/02-03T04:05", {"ssTime.peek() != '-'"}},
    {"WrongSeparatorAfterTheMonth", "2001-02/03T04:05", {"ssTime.peek() != '-'"}},
    {"WrongSeparatorAfterTheDay", "2001-02-03 04:05", {"ssTime.peek() != 'T'"}},
    {"WrongSeparatorAfterTheHour", "2001-02-03T04.05", {"ssTime.peek() != ':'"}},
};

INSTANTIATE_TEST_SUITE_P(Texts, DateChecks, testing::ValuesIn(kFaultyDates),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
