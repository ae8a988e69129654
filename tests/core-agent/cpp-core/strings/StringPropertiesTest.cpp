#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "GStringUtils.h"

namespace {

// Has few different letters, so that delimiters occur, overlap themselves and are at the ends.
std::string AnyText()
{
    return *rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab/")));
}

std::string AnyShortText()
{
    const auto size = *rc::gen::inRange<std::size_t>(1, 4);
    return *rc::gen::container<std::string>(size, rc::gen::elementOf(std::string("ab/")));
}

std::string Join(const std::vector<std::string>& parts, const std::string& delimiter)
{
    std::string text;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        if (index != 0) text += delimiter;
        text += parts[index];
    }
    return text;
}

RC_GTEST_PROP(StringProperties, JoinReversesSplit, ())
{
    const std::string text = AnyText();
    const std::string delimiter = AnyShortText();
    RC_ASSERT(Join(GStringUtils::Split(text, delimiter), delimiter) == text);
}

RC_GTEST_PROP(StringProperties, NoPartContainsTheDelimiter, ())
{
    const std::string delimiter = AnyShortText();
    for (const std::string& part : GStringUtils::Split(AnyText(), delimiter)) {
        RC_ASSERT(part.find(delimiter) == std::string::npos);
    }
}

RC_GTEST_PROP(StringProperties, SplitReturnsAtLeastOnePart, ())
{
    RC_ASSERT(!GStringUtils::Split(AnyText(), AnyText()).empty());
}

RC_GTEST_PROP(StringProperties, StrippedTextDoesNotBeginWithThePrefix, ())
{
    const std::string text = AnyText();
    const std::string prefix = AnyShortText();
    const std::string stripped = GStringUtils::StripPrecedingString(text, prefix);
    RC_ASSERT(!GStringUtils::BeginsWith(stripped, prefix));
    RC_ASSERT(GStringUtils::EndsWith(text, stripped));
    RC_ASSERT((text.size() - stripped.size()) % prefix.size() == 0U);
    RC_ASSERT(GStringUtils::StripPrecedingString(prefix + text, prefix) == stripped);
}

RC_GTEST_PROP(StringProperties, StrippedTextDoesNotEndWithTheSuffix, ())
{
    const std::string text = AnyText();
    const std::string suffix = AnyShortText();
    const std::string stripped = GStringUtils::StripTrailingString(text, suffix);
    RC_ASSERT(!GStringUtils::EndsWith(stripped, suffix));
    RC_ASSERT(GStringUtils::BeginsWith(text, stripped));
    RC_ASSERT((text.size() - stripped.size()) % suffix.size() == 0U);
    RC_ASSERT(GStringUtils::StripTrailingString(text + suffix, suffix) == stripped);
}

RC_GTEST_PROP(StringProperties, TextBeginsAndEndsWithItsParts, ())
{
    const auto first = *rc::gen::arbitrary<std::string>();
    const auto second = *rc::gen::arbitrary<std::string>();
    RC_ASSERT(GStringUtils::BeginsWith(first + second, first));
    RC_ASSERT(GStringUtils::EndsWith(first + second, second));
}

RC_GTEST_PROP(StringProperties, LowerCaseIsIdempotent, ())
{
    const auto text = *rc::gen::arbitrary<std::string>();
    const std::string lowered = GStringUtils::OSToLowerCase(text);
    RC_ASSERT(lowered.size() == text.size());
    RC_ASSERT(GStringUtils::OSToLowerCase(lowered) == lowered);
    for (const char letter : lowered) RC_ASSERT(!(letter >= 'A' && letter <= 'Z'));
}

}  // namespace
