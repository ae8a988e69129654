#include "vexcor/commands/LaunchInformation.h"

#include <gtest/gtest.h>

using vexcor::SetVexcorPath;

TEST(LaunchInformationTest, ANewFileHasTheOneLine)
{
    EXPECT_EQ(SetVexcorPath("", "/a/Vexcor"), "vexcor.path=/a/Vexcor\n");
}

TEST(LaunchInformationTest, TheOldPathIsReplacedAndOtherLinesStay)
{
    EXPECT_EQ(SetVexcorPath("first=1\nvexcor.path=/old\n# last", "/a/Vexcor"),
              "first=1\nvexcor.path=/a/Vexcor\n# last");
    EXPECT_EQ(SetVexcorPath("vexcor.path=/old\r\nother=1\r\nvexcor.path=/older\r\n", "/a/Vexcor"),
              "vexcor.path=/a/Vexcor\nother=1\r\n");
}

TEST(LaunchInformationTest, ALineThatAReaderMightTakeForOursComesLater)
{
    EXPECT_EQ(SetVexcorPath("a=1\n# old.vexcor.path=/x\n", "/a/Vexcor"),
              "a=1\nvexcor.path=/a/Vexcor\n# old.vexcor.path=/x\n");
}

TEST(LaunchInformationTest, ALineWithoutAnEndGetsOne)
{
    EXPECT_EQ(SetVexcorPath("a=1", "/a/Vexcor"), "a=1\nvexcor.path=/a/Vexcor\n");
}

TEST(LaunchInformationTest, PartsBetweenCarriageReturnsAreLinesOfTheUser)
{
    EXPECT_EQ(SetVexcorPath("vexcor.path=/old\rother=1\r", "/a/Vexcor"),
              "vexcor.path=/a/Vexcor\nother=1\r");
    EXPECT_EQ(SetVexcorPath("other=1\rvexcor.path=/old\nlast=2\n", "/a/Vexcor"),
              "vexcor.path=/a/Vexcor\nother=1\r\nlast=2\n");
}

TEST(LaunchInformationTest, AgainChangesNothing)
{
    const std::string once = SetVexcorPath("a=1\n\nb=2\n", "/a/Vexcor");
    EXPECT_EQ(SetVexcorPath(once, "/a/Vexcor"), once);
}
