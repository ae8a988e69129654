#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "CorvantaFileUtils.h"
#include "Platform.h"
#include "ScratchFolder.h"

using CorvantaFileUtils::GetFileModificationDate;

namespace {

class FileDateContract : public testing::Test {
protected:
    std::string FileOf(time_t seconds, long nanoseconds, const std::string& name = "a.ai")
    {
        const std::string path = scratch.Write(name, "x");
        const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
        EXPECT_EQ(0, utimensat(AT_FDCWD, path.c_str(), times, 0));
        return path;
    }

    ScratchFolder scratch;
};

TEST_F(FileDateContract, IsInWholeSecondsSince1970)
{
    EXPECT_EQ(1234567890, GetFileModificationDate(FileOf(1234567890, 0).c_str()));
    EXPECT_EQ(1234567890, GetFileModificationDate(FileOf(1234567890, 999000000).c_str()));
    EXPECT_EQ(5000000000, GetFileModificationDate(FileOf(5000000000, 0).c_str()));
}

TEST_F(FileDateContract, DropsTheFractionOfADateBefore2001AsThePlatformDoes)
{
    EXPECT_EQ(500000000, GetFileModificationDate(FileOf(500000000, 0).c_str()));
    EXPECT_EQ(Platform::kEarlyDateIsCutUpwards ? 500000001 : 500000000,
              GetFileModificationDate(FileOf(500000000, 500000000).c_str()));
}

TEST_F(FileDateContract, AcceptsAnyUTF8Path)
{
    EXPECT_EQ(1500000000, GetFileModificationDate(
                              FileOf(1500000000, 0, "caf\xC3\xA9 %20 \xE3\x83\x95.ai").c_str()));
}

TEST_F(FileDateContract, IsZeroForAFileThatCannotBeRead)
{
    const long before = Platform::LiveReferences();
    EXPECT_EQ(0, GetFileModificationDate(scratch.Path("missing.ai").c_str()));
    EXPECT_EQ(0, GetFileModificationDate("Untitled-1"));
    EXPECT_EQ(0, GetFileModificationDate(""));
    EXPECT_EQ(0, GetFileModificationDate(nullptr));
    const std::string name = "caf\xE9.ai";
    const std::string path =
        Platform::kFileNamesAreUTF8 ? scratch.Path(name) : FileOf(1500000000, 0, name);
    EXPECT_EQ(0, GetFileModificationDate(path.c_str()));
    EXPECT_EQ(before, Platform::LiveReferences());
}

TEST_F(FileDateContract, FollowsALinkIfThePlatformDoes)
{
    const std::string link = scratch.Path("link");
    ASSERT_EQ(0, symlink(FileOf(1500000000, 0).c_str(), link.c_str()));
    struct stat status {};
    ASSERT_EQ(0, lstat(link.c_str(), &status));
    EXPECT_EQ(Platform::kDateFollowsLinks ? 1500000000 : status.st_mtime,
              GetFileModificationDate(link.c_str()));
}

TEST_F(FileDateContract, LeaksNoReference)
{
    if (!Platform::kCountsReferences) GTEST_SKIP() << "references are not counted";
    const std::string path = FileOf(1234567890, 0);
    const long before = Platform::LiveReferences();
    EXPECT_NE(0, GetFileModificationDate(path.c_str()));
    EXPECT_EQ(before, Platform::LiveReferences());
}

}  // namespace
