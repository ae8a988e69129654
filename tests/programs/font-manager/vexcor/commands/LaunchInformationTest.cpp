#include "vexcor/commands/LaunchInformation.h"

#include <gtest/gtest.h>

using vexcor::SetVexcorPath;

TEST(LaunchInformationTest, ANewFileHasOneLine)
{
    EXPECT_EQ("vexcor.path=/a/Vexcor\n", SetVexcorPath("", "/a/Vexcor"));
}

TEST(LaunchInformationTest, TheFormerPathIsReplacedAndOtherLinesAreKept)
{
    EXPECT_EQ("first=1\nvexcor.path=/a/Vexcor\n# last",
              SetVexcorPath("first=1\nvexcor.path=/old\n# last", "/a/Vexcor"));
    EXPECT_EQ("vexcor.path=/a/Vexcor\nother=1\r\n",
              SetVexcorPath("vexcor.path=/old\r\nother=1\r\nvexcor.path=/older\r\n", "/a/Vexcor"));
}

TEST(LaunchInformationTest, TheLineComesBeforeOthersThatContainTheKey)
{
    EXPECT_EQ("a=1\nvexcor.path=/a/Vexcor\n# old.vexcor.path=/x\n",
              SetVexcorPath("a=1\n# old.vexcor.path=/x\n", "/a/Vexcor"));
}

TEST(LaunchInformationTest, ALastLineWithoutAnEndGetsOne)
{
    EXPECT_EQ("a=1\nvexcor.path=/a/Vexcor\n", SetVexcorPath("a=1", "/a/Vexcor"));
}

TEST(LaunchInformationTest, ACarriageReturnEndsALineToo)
{
    EXPECT_EQ("vexcor.path=/a/Vexcor\nother=1\r",
              SetVexcorPath("vexcor.path=/old\rother=1\r", "/a/Vexcor"));
    EXPECT_EQ("vexcor.path=/a/Vexcor\nother=1\r\nlast=2\n",
              SetVexcorPath("other=1\rvexcor.path=/old\nlast=2\n", "/a/Vexcor"));
}

TEST(LaunchInformationTest, SettingTheSamePathAgainChangesNothing)
{
    const std::string once = SetVexcorPath("a=1\n\nb=2\n", "/a/Vexcor");
    EXPECT_EQ(once, SetVexcorPath(once, "/a/Vexcor"));
}
