#include "documents/model/FontName.h"

#include <gtest/gtest.h>

#include <set>

using namespace documents;

namespace {

std::string Choose(const std::string& name, const std::set<std::string>& fonts)
{
    return ChooseFontName(name, [&](const std::string& each) { return fonts.count(each) != 0; });
}

}  // namespace

TEST(FontName, EncodingIsRemovedIfOnlyTheRestIsAFont)
{
    EXPECT_EQ("Gamma-Bold", Choose("Gamma-Bold-Identity-H", {"Gamma-Bold"}));
    EXPECT_EQ("Gamma", Choose("Gamma-Identity-V", {"Gamma"}));
    EXPECT_EQ("Gamma-Identity-H", Choose("Gamma-Identity-H", {"Gamma", "Gamma-Identity-H"}));
    EXPECT_EQ("Gamma-Identity-H", Choose("Gamma-Identity-H", {"Delta"}));
}

TEST(FontName, OtherEndsAreKept)
{
    for (const char* const name : {"Gamma", "Gamma-H", "Gamma-V", "Gamma-Identity", "-Identity-H",
                                   "Gamma-Identity-Hx", ""}) {
        EXPECT_EQ(name, Choose(name, {"Gamma", ""}));
        EXPECT_FALSE(HasEncodingSuffix(name)) << name;
    }
}

TEST(FontName, FontsAreOnlyLookedForIfTheNameHasAnEncoding)
{
    int calls = 0;
    EXPECT_EQ("Gamma-Bold", ChooseFontName("Gamma-Bold", [&](const std::string&) {
                  ++calls;
                  return true;
              }));
    EXPECT_EQ(0, calls);
}
