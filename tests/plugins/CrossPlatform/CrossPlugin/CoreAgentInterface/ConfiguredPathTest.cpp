#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "CoreErrorCodes.h"
#include "GetPathToRunningProcess.h"
#include "ScratchFolder.h"

namespace {

constexpr char kFile[] = "Corvanta/com.corvanta.Vexcor-LaunchInfo.conf";

// The user's library folder is the test's own.
class ConfiguredPath : public testing::Test {
protected:
    ConfiguredPath() { EXPECT_EQ(setenv("XDG_DATA_HOME", scratch.Path().c_str(), 1), 0); }

    unsigned int Ask()
    {
        value = "before";
        return GetConfiguredPath("Corvanta", "com.corvanta.Vexcor-LaunchInfo.conf", "vexcor.path",
                                 value);
    }
    void ExpectValue(const std::string& content, const std::string& expected)
    {
        (void)scratch.Write(kFile, content);  // the path is known
        EXPECT_EQ(Ask(), 0U) << testing::PrintToString(content);
        EXPECT_EQ(value, expected) << testing::PrintToString(content);
    }
    void ExpectNothing()
    {
        EXPECT_EQ(Ask(), 0x15000000U);
        EXPECT_EQ(value, "before");
    }
    void ExpectNothing(const std::string& content)
    {
        SCOPED_TRACE(testing::PrintToString(content));
        (void)scratch.Write(kFile, content);  // the path is known
        ExpectNothing();
    }

    ScratchFolder scratch;
    std::string value;
};

TEST_F(ConfiguredPath, IsTheValueOfTheKey)
{
    ExpectValue("vexcor.path=/a/b/Vexcor\n", "/a/b/Vexcor");
    ExpectValue("vexcor.path=/a/b/Vexcor", "/a/b/Vexcor");
}

TEST_F(ConfiguredPath, OtherLinesAreReadOver)
{
    ExpectValue("# launch information\n\nother=1\nvexcor.path=/a\nlast=2\n", "/a");
}

TEST_F(ConfiguredPath, FirstLineThatGivesAValueWins)
{
    ExpectValue("vexcor.path=/first\nvexcor.path=/second\n", "/first");
    ExpectValue("vexcor.path\nvexcor.path=/second\n", "/second");
    ExpectValue("vexcor.path=\nvexcor.path=/second\n", "");
}

TEST_F(ConfiguredPath, KeyMayStandAnywhereInItsLine)
{
    ExpectValue("old.vexcor.path=x\nvexcor.path=y\n", "x");
    ExpectValue("# vexcor.path=x\n", "x");
    ExpectValue("vexcor.path.old=x\n", "x");
    ExpectValue("other=vexcor.path\n", "vexcor.path");
}

TEST_F(ConfiguredPath, CaseOfTheKeyCounts) { ExpectNothing("Vexcor.Path=/a\n"); }

TEST_F(ConfiguredPath, LinesThatEndInReturnAndLineFeed)
{
    ExpectValue("other=1\r\nvexcor.path=/a/b\r\nlast=2\r\n", "/a/b");
}

TEST_F(ConfiguredPath, ReturnsAloneMakeOneLine)
{
    ExpectValue("vexcor.path=/a/b\rother=2\r", "/a/b");
    // The line's first "=" is another key's.
    ExpectValue("other=1\rvexcor.path=/a/b\r", "1");
    ExpectNothing("comment\rvexcor.path=/a/b\r");
}

TEST_F(ConfiguredPath, SecondEqualsBelongsToTheValue)
{
    ExpectValue("vexcor.path=/a=b/Vexcor\n", "/a=b/Vexcor");
}

TEST_F(ConfiguredPath, BytesStayAsTheyAre)
{
    ExpectValue("vexcor.path= C:\\Programs\\Vexcor.exe \n", " C:\\Programs\\Vexcor.exe ");
    ExpectValue("vexcor.path=/caf\xC3\xA9/\x8E\n", "/caf\xC3\xA9/\x8E");
    ExpectValue("vexcor.path=~/Vexcor\n", "~/Vexcor");
}

TEST_F(ConfiguredPath, ByteOrderMarkInFrontOfTheKeyDoesNoHarm)
{
    ExpectValue("\xEF\xBB\xBFvexcor.path=/a\n", "/a");
}

TEST_F(ConfiguredPath, FilesWithoutAValueGiveNothing)
{
    ExpectNothing("");
    ExpectNothing("\n\n\r\n");
    ExpectNothing("other=/a\n");
    ExpectNothing("vexcor.path\n");
    ExpectNothing("vexcor.path /a\n");
    ExpectNothing("vexcor.\npath=/a\n");
    ExpectNothing(std::string(4096, '\0'));
}

TEST_F(ConfiguredPath, ZeroByteEndsTheLine)
{
    ExpectValue(std::string("vexcor.path=/a\0/b\n", 18), "/a");
    ExpectNothing(std::string("vexcor.path\0=/b\n", 16));
}

TEST_F(ConfiguredPath, MissingFileGivesNothing) { ExpectNothing(); }

TEST_F(ConfiguredPath, FolderInThePlaceOfTheFileGivesNothing)
{
    std::filesystem::create_directories(scratch.Path(kFile));
    ExpectNothing();
}

TEST_F(ConfiguredPath, FileInThePlaceOfTheFolderGivesNothing)
{
    (void)scratch.Write("Corvanta", "vexcor.path=/a\n");  // the path is known
    ExpectNothing();
}

TEST_F(ConfiguredPath, DanglingLinkGivesNothing)
{
    std::filesystem::create_directories(scratch.Path("Corvanta"));
    std::filesystem::create_symlink(scratch.Path("gone"), scratch.Path(kFile));
    ExpectNothing();
}

TEST_F(ConfiguredPath, LinkIsFollowed)
{
    std::filesystem::create_directories(scratch.Path("Corvanta"));
    std::filesystem::create_symlink(scratch.Write("elsewhere", "vexcor.path=/a\n"),
                                    scratch.Path(kFile));
    EXPECT_EQ(Ask(), 0U);
    EXPECT_EQ(value, "/a");
}

TEST_F(ConfiguredPath, FileThatMayNotBeReadGivesNothing)
{
    const std::string path = scratch.Write(kFile, "vexcor.path=/a\n");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ASSERT_EQ(chmod(scratch.Path().c_str(), 0755), 0);
    // Nothing is forbidden to root, so the question is asked as somebody else.
    const uid_t user = geteuid();
    ASSERT_EQ(seteuid(user == 0 ? 65534 : user), 0);
    ExpectNothing();
    ASSERT_EQ(seteuid(user), 0);
}

TEST_F(ConfiguredPath, LineOfAHundredMegabytes)
{
    const std::string value100 = "/" + std::string(100U << 20, 'v');
    (void)scratch.Write(kFile, "vexcor.path=" + value100);  // the path is known
    EXPECT_EQ(Ask(), 0U);
    EXPECT_TRUE(value == value100);
}

TEST_F(ConfiguredPath, HundredMegabytesInFrontOfTheLine)
{
    ExpectValue(std::string(100U << 20, 'x') + "\nvexcor.path=/a\n", "/a");
}

TEST_F(ConfiguredPath, VendorAndFileMakeThePath)
{
    (void)scratch.Write("Other/file", "some.key=1\n");  // the path is known
    EXPECT_EQ(GetConfiguredPath("Other", "file", "some.key", value), 0U);
    EXPECT_EQ(value, "1");
    EXPECT_EQ(GetConfiguredPath("Other", "file", "another.key", value), 0x15000000U);
}

}  // namespace
