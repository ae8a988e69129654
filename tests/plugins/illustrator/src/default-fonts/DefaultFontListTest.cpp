#include <gtest/gtest.h>

#include "DefaultFontsHost.h"
#include "FreshProcess.h"

namespace {

typedef std::vector<std::string> Names;

TEST(DefaultFontList, HoldsTheFullNameAndThenItsRoot)
{
    InFreshProcess([] {
        DefaultFontsHost host("ExampleSans-Regular");
        EXPECT_FALSE(IsDefault("Other"));
        EXPECT_EQ((Names{"ExampleSans-Regular", "ExampleSans"}), AddedNames());
    });
}

TEST(DefaultFontList, HoldsANameWithoutAHyphenOnce)
{
    InFreshProcess([] {
        DefaultFontsHost host("Times");
        EXPECT_TRUE(IsDefault("Times"));
        EXPECT_EQ(Names{"Times"}, AddedNames());
    });
}

TEST(DefaultFontList, CutsTheRootAtTheFirstHyphen)
{
    InFreshProcess([] {
        DefaultFontsHost host("Example-Sans-Bold");
        EXPECT_TRUE(IsDefault("Example-Serif"));
        EXPECT_EQ((Names{"Example-Sans-Bold", "Example"}), AddedNames());
    });
}

TEST(DefaultFontList, AsksForTheFontOfEachScriptAndItsName)
{
    InFreshProcess([] {
        DefaultFontsHost host("ExampleSans-Regular");
        EXPECT_FALSE(IsDefault("Other"));
        Names expected;
        for (const AIFaceScript script : kScripts) {
            expected.push_back("AIFontSuite.GetDefaultFontForScript(" + std::to_string(script) +
                               ")");
            expected.push_back("AIFontSuite.GetPostScriptFontName(font ExampleSans-Regular, 128)");
        }
        EXPECT_EQ(expected, host.Calls());
    });
}

TEST(DefaultFontList, KeepsTheOrderOfTheScripts)
{
    InFreshProcess([] {
        DefaultFontsHost host("Sans-Regular");
        host.defaultFonts[-1] = "Kanji-Light";
        host.defaultFonts[85] = "Thai";
        host.defaultFonts[8] = "NeverAsked";
        EXPECT_FALSE(IsDefault("Other"));
        EXPECT_EQ((Names{"Sans-Regular", "Sans", "Kanji-Light", "Kanji", "Thai"}), AddedNames());
    });
}

TEST(DefaultFontList, SkipsNamesThatAnEntryAlreadyCovers)
{
    InFreshProcess([] {
        DefaultFontsHost host("Sans-Regular");
        host.defaultFonts[0] = "SansCondensed-Light";
        host.defaultFonts[1] = "San-Light";
        EXPECT_FALSE(IsDefault("Other"));
        EXPECT_EQ((Names{"Sans-Regular", "Sans", "San-Light", "San"}), AddedNames());
    });
}

TEST(DefaultFontList, UsesThePreviousFontForAScriptWithoutOne)
{
    InFreshProcess([] {
        DefaultFontsHost host("Sans-Regular");
        host.defaultFonts[1] = "Kanji-Light";
        host.defaultFonts.erase(2);
        EXPECT_FALSE(IsDefault("Other"));
        EXPECT_EQ((Names{"Sans-Regular", "Sans", "Kanji-Light", "Kanji"}), AddedNames());
        EXPECT_EQ(2U, host.CountCalls("AIFontSuite.GetPostScriptFontName(font Kanji-Light, 128)"));
    });
}

TEST(DefaultFontList, EmptyFirstNameMakesEveryFontADefaultFont)
{
    InFreshProcess([] {
        DefaultFontsHost host("Sans-Regular");
        host.FailCall("AIFontSuite.GetPostScriptFontName", 1, kHostBadParameter);
        EXPECT_TRUE(IsDefault("Other"));
        EXPECT_TRUE(IsDefault(""));
        EXPECT_EQ(Names{""}, AddedNames());
    });
}

TEST(DefaultFontList, AsksTheHostOnlyOnce)
{
    InFreshProcess([] {
        DefaultFontsHost host("Sans-Regular");
        EXPECT_FALSE(IsDefault("Other"));
        host.ClearCalls();
        for (const AIFaceScript script : kScripts) host.defaultFonts[script] = "Other";
        EXPECT_FALSE(IsDefault("Other"));
        EXPECT_TRUE(IsDefault("Sans-Bold"));
        EXPECT_TRUE(host.Calls().empty());
    });
}

TEST(DefaultFontList, MatchesPrefixes)
{
    InFreshProcess([] {
        DefaultFontsHost host("ExampleSans-Regular");
        EXPECT_TRUE(IsDefault("ExampleSans-Regular"));
        EXPECT_TRUE(IsDefault("ExampleSans"));
        EXPECT_TRUE(IsDefault("ExampleSans-Bold"));
        EXPECT_TRUE(IsDefault("ExampleSansCondensed-Light"));
        EXPECT_FALSE(IsDefault("ExampleSan"));
        EXPECT_FALSE(IsDefault("exampleSans-Bold"));
        EXPECT_FALSE(IsDefault("OtherExampleSans"));
        EXPECT_FALSE(IsDefault(""));
    });
}

}  // namespace
