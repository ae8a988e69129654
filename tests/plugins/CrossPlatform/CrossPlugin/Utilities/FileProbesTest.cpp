#include "FileProbes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "CorvantaFileUtils.h"
#include "ScratchFolder.h"

namespace {

using CorvantaFileUtils::FileExists;
using CorvantaFileUtils::GetFileModificationDate;

// Sets the modification time. Returns false if the file system can't store it.
bool SetTime(const std::string& path, time_t seconds, long nanoseconds)
{
    const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
    struct stat status {};
    return utimensat(AT_FDCWD, path.c_str(), times, 0) == 0 && stat(path.c_str(), &status) == 0 &&
           status.st_mtim.tv_sec == seconds && status.st_mtim.tv_nsec == nanoseconds;
}

TEST(FileExists, IsTrueForARegularFile)
{
    const ScratchFolder scratch;
    EXPECT_TRUE(FileExists(scratch.Write("a.ai", "x")));
}

TEST(FileExists, IsTrueForAnEmptyFile)
{
    const ScratchFolder scratch;
    EXPECT_TRUE(FileExists(scratch.Write("empty", "")));
}

TEST(FileExists, IsFalseForAFolder)
{
    const ScratchFolder scratch;
    EXPECT_FALSE(FileExists(scratch.Path()));
}

TEST(FileExists, IsFalseForADanglingLink)
{
    const ScratchFolder scratch;
    ASSERT_EQ(0, symlink(scratch.Path("nowhere").c_str(), scratch.Path("link").c_str()));
    EXPECT_FALSE(FileExists(scratch.Path("link")));
}

TEST(FileExists, FollowsALinkToAFile)
{
    const ScratchFolder scratch;
    const std::string target = scratch.Write("a.ai", "x");
    ASSERT_EQ(0, symlink(target.c_str(), scratch.Path("link").c_str()));
    EXPECT_TRUE(FileExists(scratch.Path("link")));
}

TEST(FileExists, IsFalseForALinkToAFolder)
{
    const ScratchFolder scratch;
    ASSERT_EQ(0, symlink(scratch.Path().c_str(), scratch.Path("link").c_str()));
    EXPECT_FALSE(FileExists(scratch.Path("link")));
}

TEST(FileExists, IsFalseForAPipe)
{
    const ScratchFolder scratch;
    ASSERT_EQ(0, mkfifo(scratch.Path("pipe").c_str(), 0600));
    EXPECT_FALSE(FileExists(scratch.Path("pipe")));
}

TEST(FileExists, IsFalseForAMissingFileAndForAnEmptyPath)
{
    const ScratchFolder scratch;
    EXPECT_FALSE(FileExists(scratch.Path("missing")));
    EXPECT_FALSE(FileExists(""));
}

TEST(GetFileModificationDate, IsTheSecondsSince1970)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a.ai", "x");
    ASSERT_TRUE(SetTime(path, 1234567890, 0));
    EXPECT_EQ(1234567890, GetFileModificationDate(path.c_str()));
}

TEST(GetFileModificationDate, TruncatesTheFraction)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a.ai", "x");
    if (!SetTime(path, 1234567890, 999000000)) GTEST_SKIP() << "no fractions on this file system";
    EXPECT_EQ(1234567890, GetFileModificationDate(path.c_str()));
}

TEST(GetFileModificationDate, ExceedsThirtyTwoBits)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a.ai", "x");
    if (!SetTime(path, 5000000000, 0)) GTEST_SKIP() << "no such date on this file system";
    EXPECT_EQ(5000000000, GetFileModificationDate(path.c_str()));
}

TEST(GetFileModificationDate, IsNegativeBefore1970)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("a.ai", "x");
    if (!SetTime(path, -100, 0)) GTEST_SKIP() << "no such date on this file system";
    EXPECT_EQ(-100, GetFileModificationDate(path.c_str()));
}

TEST(GetFileModificationDate, AcceptsAUTF8Path)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("caf\xC3\xA9.ai", "x");
    ASSERT_TRUE(SetTime(path, 1500000000, 0));
    EXPECT_EQ(1500000000, GetFileModificationDate(path.c_str()));
}

TEST(GetFileModificationDate, IsZeroForAPathThatIsNotUTF8)
{
    const ScratchFolder scratch;
    const std::string path = scratch.Write("caf\xE9.ai", "x");
    EXPECT_EQ(0, GetFileModificationDate(path.c_str()));
}

TEST(GetFileModificationDate, IsZeroForAMissingFile)
{
    const ScratchFolder scratch;
    EXPECT_EQ(0, GetFileModificationDate(scratch.Path("missing.ai").c_str()));
}

TEST(GetFileModificationDate, IsZeroForABareTitle)
{
    EXPECT_EQ(0, GetFileModificationDate("Untitled-1"));
}

TEST(GetFileModificationDate, IsZeroForADanglingLink)
{
    const ScratchFolder scratch;
    ASSERT_EQ(0, symlink(scratch.Path("nowhere").c_str(), scratch.Path("link").c_str()));
    EXPECT_EQ(0, GetFileModificationDate(scratch.Path("link").c_str()));
}

TEST(GetFileModificationDate, IsZeroForANullOrEmptyPath)
{
    EXPECT_EQ(0, GetFileModificationDate(nullptr));
    EXPECT_EQ(0, GetFileModificationDate(""));
}

}  // namespace
