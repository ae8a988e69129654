#include "FileFormatHook.h"
#include "MessageFixture.h"

namespace {

class EPSVersion8 : public MessageFixture {
protected:
    static std::string Lines(int count)
    {
        std::string text;
        for (int line = 0; line < count; ++line) text += "%%Line\n";
        return text;
    }

    const std::string creator = "%%Creator: Adobe Illustrator(R) 8.0\n";
};

TEST_F(EPSVersion8, FindsTheCreatorLine)
{
    EXPECT_TRUE(IsEPSVersion8(ScratchFile("a.eps", "%!PS\n" + creator + "%%EndComments\n")));
}

TEST_F(EPSVersion8, FindsTheTextAnywhereInALine)
{
    EXPECT_TRUE(
        IsEPSVersion8(ScratchFile("a.txt", "before %Creator: Adobe Illustrator(R) 8.0.1 after\n")));
}

TEST_F(EPSVersion8, RejectsOtherVersions)
{
    EXPECT_FALSE(IsEPSVersion8(ScratchFile("a.eps", "%%Creator: Adobe Illustrator(R) 9.0\n")));
    EXPECT_FALSE(IsEPSVersion8(ScratchFile("b.eps", "%%creator: adobe illustrator(r) 8.0\n")));
}

TEST_F(EPSVersion8, SearchesLine25ButNotLine26)
{
    EXPECT_TRUE(IsEPSVersion8(ScratchFile("25.eps", Lines(24) + creator)));
    EXPECT_FALSE(IsEPSVersion8(ScratchFile("26.eps", Lines(25) + creator)));
}

TEST_F(EPSVersion8, TreatsTextWithoutLineFeedsAsOneLine)
{
    std::string text;
    for (int line = 0; line < 40; ++line) text += "%%Line\r";
    EXPECT_TRUE(IsEPSVersion8(ScratchFile("a.eps", text + creator)));
}

TEST_F(EPSVersion8, FindsTheTextInALastLineWithoutALineFeed)
{
    EXPECT_TRUE(IsEPSVersion8(ScratchFile("a.eps", "%Creator: Adobe Illustrator(R) 8.0")));
}

TEST_F(EPSVersion8, RejectsEmptyAndMissingFiles)
{
    EXPECT_FALSE(IsEPSVersion8(ScratchFile("a.eps", "")));
    EXPECT_FALSE(IsEPSVersion8(scratch + "/missing.eps"));
    EXPECT_FALSE(IsEPSVersion8(""));
    EXPECT_FALSE(IsEPSVersion8(scratch));
}

}  // namespace
