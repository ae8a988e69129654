#include "base/Files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;
using base::GetLowerExtension;
using base::IsReadableFile;

namespace {

class IsReadableFileTest : public testing::Test {
protected:
    IsReadableFileTest()
    {
        std::string pattern = testing::TempDir() + "files-XXXXXX";
        EXPECT_NE(mkdtemp(pattern.data()), nullptr);
        mFolder = pattern;
        std::ofstream(mFolder / "file") << "text";
    }
    ~IsReadableFileTest() override
    {
        std::error_code ignored;  // what remains in a scratch folder harms nobody
        fs::remove_all(mFolder, ignored);
    }

    fs::path mFolder;
};

TEST_F(IsReadableFileTest, AFileOrALinkToOne)
{
    fs::create_symlink("file", mFolder / "link");
    EXPECT_TRUE(IsReadableFile(mFolder / "file"));
    EXPECT_TRUE(IsReadableFile(mFolder / "link"));
}

TEST_F(IsReadableFileTest, NothingElse)
{
    ASSERT_EQ(mkfifo((mFolder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("none", mFolder / "dangling");
    for (const char* const name : {"", "none", "pipe", "dangling", "file/below"}) {
        EXPECT_FALSE(IsReadableFile(mFolder / name)) << name;
    }
    EXPECT_FALSE(IsReadableFile(""));
}

TEST_F(IsReadableFileTest, AFileWithoutPermissionIsNotReadable)
{
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may read everything";
    fs::permissions(mFolder / "file", fs::perms::none);
    EXPECT_FALSE(IsReadableFile(mFolder / "file"));
}

TEST(GetLowerExtensionTest, TheLastComponentHasIt)
{
    EXPECT_EQ(GetLowerExtension("/A.b/Name.AiT"), ".ait");
    EXPECT_EQ(GetLowerExtension("name.tar.GZ"), ".gz");
    EXPECT_EQ(GetLowerExtension("name."), ".");
    EXPECT_EQ(GetLowerExtension("/a.b/name"), "");
    EXPECT_EQ(GetLowerExtension("/a/.ai"), "");
    EXPECT_EQ(GetLowerExtension(""), "");
}

}  // namespace
