#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>

#include "GDateTime.h"

namespace {

short Between(short least, short greatest) { return *rc::gen::inRange<int>(least, greatest + 1); }

SDateTime AnyValidFields()
{
    SDateTime fields;
    fields.year = Between(GDateTime::kMinYear, GDateTime::kMaxYear);
    fields.month = Between(GDateTime::kMinMonth, GDateTime::kMaxMonth);
    fields.day = Between(GDateTime::kMinDay, GDateTime::kMaxDay);
    fields.hour = Between(GDateTime::kMinHour, GDateTime::kMaxHour);
    fields.minute = Between(GDateTime::kMinMinute, GDateTime::kMaxMinute);
    fields.second = Between(GDateTime::kMinSecond, GDateTime::kMaxSecond);
    fields.millisecond = Between(GDateTime::kMinMillisecond, GDateTime::kMaxMillisecond);
    return fields;
}

bool AreEqual(const SDateTime& a, const SDateTime& b)
{
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour &&
           a.minute == b.minute && a.second == b.second && a.millisecond == b.millisecond;
}

RC_GTEST_PROP(DateProperties, ParseReversesPrint, ())
{
    const GDateTime date(AnyValidFields());
    const std::string text = date.GetAsISO8601String(true);
    RC_ASSERT(text.size() == 24U);
    GDateTime again;
    RC_ASSERT(again.SetFromISO8601String(text) == CoreErrorCodes::kSuccess);
    RC_ASSERT(AreEqual(again.GetSDateTime(), date.GetSDateTime()));
    RC_ASSERT(again.GetAsISO8601String(true) == text);
}

RC_GTEST_PROP(DateProperties, DateAloneIsThePrefixOfTheWholeText, ())
{
    const GDateTime date(AnyValidFields());
    const std::string text = date.GetAsISO8601String(true);
    RC_ASSERT(date.GetAsISO8601String(false) == text.substr(0, text.find('T')));
}

RC_GTEST_PROP(DateProperties, AnyTextIsParsedOrDoesNotChangeTheObject, ())
{
    const auto text = *rc::gen::container<std::string>(
        rc::gen::elementOf(std::string("0123456789012345678901234567890123456789--::TT..+ Zx")));
    const GDateTime before(AnyValidFields());
    GDateTime date(before);
    if (date.SetFromISO8601String(text) != CoreErrorCodes::kSuccess) {
        RC_ASSERT(AreEqual(date.GetSDateTime(), before.GetSDateTime()));
        return;
    }
    GDateTime again;
    RC_ASSERT(again.SetFromISO8601String(date.GetAsISO8601String(true)) ==
              CoreErrorCodes::kSuccess);
    RC_ASSERT(AreEqual(again.GetSDateTime(), date.GetSDateTime()));
}

// Changes one character of a valid text.
RC_GTEST_PROP(DateProperties, TextWithOneWrongCharacterIsParsedOrDoesNotChangeTheObject, ())
{
    std::string text = GDateTime(AnyValidFields()).GetAsISO8601String(true);
    text[*rc::gen::inRange<std::size_t>(0, text.size())] = *rc::gen::arbitrary<char>();
    GDateTime date{std::string()};
    if (date.SetFromISO8601String(text) != CoreErrorCodes::kSuccess) {
        RC_ASSERT(date.IsEmpty());
        return;
    }
    GDateTime again;
    RC_ASSERT(again.SetFromISO8601String(date.GetAsISO8601String(true)) ==
              CoreErrorCodes::kSuccess);
    RC_ASSERT(AreEqual(again.GetSDateTime(), date.GetSDateTime()));
}

RC_GTEST_PROP(DateProperties, FieldBeyondItsBoundIsAParsingError, ())
{
    SDateTime fields = AnyValidFields();
    const int field = *rc::gen::inRange(0, 5);
    const short beyond = Between(1, 500);
    if (field == 0) fields.month = short(GDateTime::kMaxMonth + beyond);
    if (field == 1) fields.day = short(GDateTime::kMaxDay + beyond);
    if (field == 2) fields.hour = short(GDateTime::kMaxHour + beyond);
    if (field == 3) fields.minute = short(GDateTime::kMaxMinute + beyond);
    if (field == 4) fields.second = short(GDateTime::kMaxSecond + beyond);
    GDateTime date{std::string()};
    RC_ASSERT(date.SetFromISO8601String(GDateTime(fields).GetAsISO8601String(true)) ==
              GDateTime::kParsingError);
    RC_ASSERT(date.IsEmpty());
}

}  // namespace
