#include "base/Files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "ScratchFolder.h"
#include "WithoutRootRights.h"

namespace fs = std::filesystem;
using base::GetLowerExtension;
using base::IsReadableFile;

namespace {

class IsReadableFileTest : public testing::Test {
protected:
    IsReadableFileTest() { mFolder.Write("file", "text"); }

    ScratchFolder mFolder;
};

TEST_F(IsReadableFileTest, AFileOrALinkToOne)
{
    fs::create_symlink("file", mFolder.Path("link"));
    EXPECT_TRUE(IsReadableFile(mFolder.Path("file")));
    EXPECT_TRUE(IsReadableFile(mFolder.Path("link")));
}

TEST_F(IsReadableFileTest, NothingElse)
{
    ASSERT_EQ(mkfifo(mFolder.Path("pipe").c_str(), 0600), 0);
    fs::create_symlink("none", mFolder.Path("dangling"));
    for (const char* const name : {"", "none", "pipe", "dangling", "file/below"}) {
        EXPECT_FALSE(IsReadableFile(mFolder.Path(name))) << name;
    }
    EXPECT_FALSE(IsReadableFile(""));
}

TEST_F(IsReadableFileTest, AFileWithoutPermissionIsNotReadable)
{
    fs::permissions(mFolder.Path("file"), fs::perms::none);
    const WithoutRootRights nobody(mFolder.Path());
    EXPECT_FALSE(IsReadableFile(mFolder.Path("file")));
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

TEST(FindProgramTest, TheFirstAbsoluteFolderWithTheProgramHasIt)
{
    const ScratchFolder folder;
    for (const char* const name : {"a/plain", "b/plain", "b/tool", "c/tool"}) {
        fs::permissions(folder.Write(name, ""), fs::perms::owner_all);
    }
    fs::permissions(folder.Path("a/plain"), fs::perms::owner_read);
    setenv(
        "PATH",
        ("relative:" + folder.Path("a") + "::" + folder.Path("b") + ":" + folder.Path("c")).c_str(),
        1);
    EXPECT_EQ(base::FindProgram("tool"), folder.Path("b/tool"));
    EXPECT_EQ(base::FindProgram("plain"), folder.Path("b/plain"));
    EXPECT_EQ(base::FindProgram("none"), "");
    unsetenv("PATH");
    EXPECT_EQ(base::FindProgram("tool"), "");
}

}  // namespace
