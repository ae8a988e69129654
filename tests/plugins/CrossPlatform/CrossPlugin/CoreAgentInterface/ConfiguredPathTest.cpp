#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "CoreErrorCodes.h"
#include "GetPathToRunningProcess.h"
#include "ScratchFolder.h"
#include "WithoutRootRights.h"

namespace {

constexpr char kFile[] = "Corvanta/com.corvanta.Vexcor-LaunchInfo.conf";

// Makes a scratch folder the user's library folder.
class ConfiguredPath : public testing::Test {
protected:
    ConfiguredPath() { EXPECT_EQ(0, setenv("XDG_DATA_HOME", scratch.Path().c_str(), 1)); }

    unsigned int Ask()
    {
        value = "before";
        return GetConfiguredPath("Corvanta", "com.corvanta.Vexcor-LaunchInfo.conf", "vexcor.path",
                                 value);
    }
    void ExpectValue(const std::string& content, const std::string& expected)
    {
        (void)scratch.Write(kFile, content);  // the path isn't needed
        EXPECT_EQ(CoreErrorCodes::kSuccess, Ask()) << testing::PrintToString(content);
        EXPECT_EQ(expected, value) << testing::PrintToString(content);
    }
    void ExpectUnknownError()
    {
        EXPECT_EQ(CoreErrorCodes::kUnknownError, Ask());
        EXPECT_EQ("before", value);
    }
    void ExpectUnknownError(const std::string& content)
    {
        SCOPED_TRACE(testing::PrintToString(content));
        (void)scratch.Write(kFile, content);  // the path isn't needed
        ExpectUnknownError();
    }

    ScratchFolder scratch;
    std::string value;
};

TEST_F(ConfiguredPath, IsTheValueOfTheKey)
{
    ExpectValue("vexcor.path=/a/b/Vexcor\n", "/a/b/Vexcor");
    ExpectValue("vexcor.path=/a/b/Vexcor", "/a/b/Vexcor");
}

TEST_F(ConfiguredPath, OtherLinesAreSkipped)
{
    ExpectValue("# launch information\n\nother=1\nvexcor.path=/a\nlast=2\n", "/a");
}

TEST_F(ConfiguredPath, FirstLineWithAValueWins)
{
    ExpectValue("vexcor.path=/first\nvexcor.path=/second\n", "/first");
    ExpectValue("vexcor.path\nvexcor.path=/second\n", "/second");
    ExpectValue("vexcor.path=\nvexcor.path=/second\n", "");
}

TEST_F(ConfiguredPath, KeyMayBeAnywhereInItsLine)
{
    ExpectValue("old.vexcor.path=x\nvexcor.path=y\n", "x");
    ExpectValue("# vexcor.path=x\n", "x");
    ExpectValue("vexcor.path.old=x\n", "x");
    ExpectValue("other=vexcor.path\n", "vexcor.path");
}

TEST_F(ConfiguredPath, KeyIsCaseSensitive) { ExpectUnknownError("Vexcor.Path=/a\n"); }

TEST_F(ConfiguredPath, LinesMayEndWithCarriageReturnAndLineFeed)
{
    ExpectValue("other=1\r\nvexcor.path=/a/b\r\nlast=2\r\n", "/a/b");
}

TEST_F(ConfiguredPath, CarriageReturnsAloneDoNotSeparateLines)
{
    ExpectValue("vexcor.path=/a/b\rother=2\r", "/a/b");
    // The first "=" of the line belongs to another key.
    ExpectValue("other=1\rvexcor.path=/a/b\r", "1");
    ExpectUnknownError("comment\rvexcor.path=/a/b\r");
}

TEST_F(ConfiguredPath, SecondEqualsSignBelongsToTheValue)
{
    ExpectValue("vexcor.path=/a=b/Vexcor\n", "/a=b/Vexcor");
}

TEST_F(ConfiguredPath, BytesOfTheValueAreUnchanged)
{
    ExpectValue("vexcor.path= C:\\Programs\\Vexcor.exe \n", " C:\\Programs\\Vexcor.exe ");
    ExpectValue("vexcor.path=/caf\xC3\xA9/\x8E\n", "/caf\xC3\xA9/\x8E");
    ExpectValue("vexcor.path=~/Vexcor\n", "~/Vexcor");
}

TEST_F(ConfiguredPath, ByteOrderMarkBeforeTheKeyIsIgnored)
{
    ExpectValue("\xEF\xBB\xBFvexcor.path=/a\n", "/a");
}

TEST_F(ConfiguredPath, FilesWithoutAValueAreErrors)
{
    ExpectUnknownError("");
    ExpectUnknownError("\n\n\r\n");
    ExpectUnknownError("other=/a\n");
    ExpectUnknownError("vexcor.path\n");
    ExpectUnknownError("vexcor.path /a\n");
    ExpectUnknownError("vexcor.\npath=/a\n");
    ExpectUnknownError(std::string(4096, '\0'));
}

TEST_F(ConfiguredPath, ZeroByteEndsTheLine)
{
    ExpectValue(std::string("vexcor.path=/a\0/b\n", 18), "/a");
    ExpectUnknownError(std::string("vexcor.path\0=/b\n", 16));
}

TEST_F(ConfiguredPath, MissingFileIsAnError) { ExpectUnknownError(); }

TEST_F(ConfiguredPath, FolderInPlaceOfTheFileIsAnError)
{
    std::filesystem::create_directories(scratch.Path(kFile));
    ExpectUnknownError();
}

TEST_F(ConfiguredPath, FileInPlaceOfTheFolderIsAnError)
{
    (void)scratch.Write("Corvanta", "vexcor.path=/a\n");  // the path isn't needed
    ExpectUnknownError();
}

TEST_F(ConfiguredPath, DanglingLinkIsAnError)
{
    std::filesystem::create_directories(scratch.Path("Corvanta"));
    std::filesystem::create_symlink(scratch.Path("gone"), scratch.Path(kFile));
    ExpectUnknownError();
}

TEST_F(ConfiguredPath, LinkIsFollowed)
{
    std::filesystem::create_directories(scratch.Path("Corvanta"));
    std::filesystem::create_symlink(scratch.Write("elsewhere", "vexcor.path=/a\n"),
                                    scratch.Path(kFile));
    EXPECT_EQ(CoreErrorCodes::kSuccess, Ask());
    EXPECT_EQ("/a", value);
}

TEST_F(ConfiguredPath, FileWithoutReadPermissionIsAnError)
{
    const std::string path = scratch.Write(kFile, "vexcor.path=/a\n");
    ASSERT_EQ(0, chmod(path.c_str(), 0));
    const WithoutRootRights nobody(scratch.Path());
    ExpectUnknownError();
}

TEST_F(ConfiguredPath, LineMayHaveAHundredMegabytes)
{
    const std::string value100 = "/" + std::string(100U << 20, 'v');
    (void)scratch.Write(kFile, "vexcor.path=" + value100);  // the path isn't needed
    EXPECT_EQ(CoreErrorCodes::kSuccess, Ask());
    EXPECT_TRUE(value == value100);
}

TEST_F(ConfiguredPath, HundredMegabytesMayPrecedeTheLine)
{
    ExpectValue(std::string(100U << 20, 'x') + "\nvexcor.path=/a\n", "/a");
}

TEST_F(ConfiguredPath, VendorAndFileNameFormThePath)
{
    (void)scratch.Write("Other/file", "some.key=1\n");  // the path isn't needed
    EXPECT_EQ(CoreErrorCodes::kSuccess, GetConfiguredPath("Other", "file", "some.key", value));
    EXPECT_EQ("1", value);
    EXPECT_EQ(CoreErrorCodes::kUnknownError,
              GetConfiguredPath("Other", "file", "another.key", value));
}

}  // namespace
