#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <type_traits>

#include "GDateTime.h"

namespace {

static_assert(sizeof(SDateTime) == 14);
static_assert(std::has_virtual_destructor_v<GDateTime>);

TEST(DatePrint, PrintsTheTextThatWasParsed)
{
    const GDateTime date(std::string("2099-12-31T23:59:59.999Z"));
    EXPECT_EQ("2099-12-31T23:59:59.999Z", date.GetAsISO8601String(true));
    EXPECT_EQ("2099-12-31", date.GetAsISO8601String(false));
}

TEST(DatePrint, MissingFieldsArePrintedAsZeros)
{
    EXPECT_EQ("2001-02-03T04:05:00.000Z",
              GDateTime(std::string("2001-02-03T04:05")).GetAsISO8601String(true));
    EXPECT_EQ("2001-02-03T04:05:06.005Z",
              GDateTime(std::string("2001-02-03T04:05:06.5Z")).GetAsISO8601String(true));
}

TEST(DatePrint, EmptyDateIsTheEmptyText)
{
    const GDateTime fromText{std::string()};
    EXPECT_TRUE(fromText.IsEmpty());
    EXPECT_EQ("", fromText.GetAsISO8601String(true));
    EXPECT_EQ("", fromText.GetAsISO8601String(false));
    EXPECT_TRUE(GDateTime(SDateTime()).IsEmpty());
}

TEST(DatePrint, YearZeroIsNotEmpty)
{
    const GDateTime date(std::string("0000-01-01T00:00"));
    EXPECT_FALSE(date.IsEmpty());
    EXPECT_EQ("0000-01-01T00:00:00.000Z", date.GetAsISO8601String(true));
}

TEST(DatePrint, OneFieldThatIsNotZeroMakesADateNotEmpty)
{
    short SDateTime::*const kFields[] = {
        &SDateTime::year,   &SDateTime::month,  &SDateTime::day,        &SDateTime::hour,
        &SDateTime::minute, &SDateTime::second, &SDateTime::millisecond};
    for (short SDateTime::*const field : kFields) {
        SDateTime fields;
        fields.*field = 1;
        EXPECT_FALSE(GDateTime(fields).IsEmpty());
    }
}

TEST(DatePrint, UncheckedFieldsArePrintedAsTheyAre)
{
    SDateTime fields;
    fields.year = 12345;
    fields.month = 99;
    fields.day = 100;
    fields.hour = 7;
    fields.minute = 300;
    fields.second = 1;
    fields.millisecond = 12345;
    EXPECT_EQ("12345-99-100T07:300:01.12345Z", GDateTime(fields).GetAsISO8601String(true));
    EXPECT_EQ("12345-99-100", GDateTime(fields).GetAsISO8601String(false));
}

TEST(DatePrint, NegativeFieldsArePaddedOnTheLeft)
{
    SDateTime fields;
    fields.year = -1;
    EXPECT_EQ("00-1-00-00", GDateTime(fields).GetAsISO8601String(false));
}

TEST(DatePrint, CopiesAreIndependent)
{
    GDateTime first(std::string("2001-02-03T04:05"));
    GDateTime second(first);
    GDateTime third{std::string()};
    third = first;
    ASSERT_EQ(CoreErrorCodes::kSuccess, first.SetFromISO8601String("2002-02-02T02:02"));
    EXPECT_EQ("2001-02-03", second.GetAsISO8601String(false));
    EXPECT_EQ("2001-02-03", third.GetAsISO8601String(false));
}

TEST(DatePrint, ConstantsAreInitialised)
{
    EXPECT_TRUE(GDateTime::kEmptyDateTime.IsEmpty());
    EXPECT_EQ("2099-12-31T23:59:59.999Z", GDateTime::kMaxDateTime.GetAsISO8601String(true));
}

// Groups digits, as many locales do.
class Grouping : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(DatePrint, GlobalLocaleIsIgnored)
{
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
    const GDateTime date(std::string("2099-12-31T23:59:59.999Z"));
    const std::string text = date.GetAsISO8601String(true);
    std::locale::global(before);
    EXPECT_EQ("2099-12-31T23:59:59.999Z", text);
}

}  // namespace
