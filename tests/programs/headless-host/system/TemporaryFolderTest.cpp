#include "system/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "ScratchFolder.h"

using headless::TemporaryFolder;

namespace {

namespace fs = std::filesystem;

// Restores TMPDIR at the end of each test.
class TemporaryFolderTest : public testing::Test {
protected:
    ~TemporaryFolderTest() override
    {
        if (wasSet) {
            EXPECT_EQ(0, setenv("TMPDIR", before.c_str(), 1));
        } else {
            EXPECT_EQ(0, unsetenv("TMPDIR"));
        }
    }

    const bool wasSet = std::getenv("TMPDIR") != nullptr;
    const std::string before = wasSet ? std::getenv("TMPDIR") : "";
    const ScratchFolder scratch;
};

}  // namespace

TEST_F(TemporaryFolderTest, IsWhereTheEnvironmentSays)
{
    ASSERT_EQ(0, setenv("TMPDIR", scratch.Path().c_str(), 1));
    for (const auto place : {TemporaryFolder::Place::kUsual, TemporaryFolder::Place::kInMemory}) {
        const TemporaryFolder folder(place);
        EXPECT_EQ(scratch.Path(), fs::path(folder.GetPath()).parent_path());
        EXPECT_TRUE(fs::is_empty(folder.GetPath()));
    }
}

TEST_F(TemporaryFolderTest, IsInMemoryIfItIsAskedForAndNothingElseIsSaid)
{
    ASSERT_EQ(0, unsetenv("TMPDIR"));
    if (!fs::is_directory("/dev/shm")) GTEST_SKIP();
    EXPECT_NE("/dev/shm", fs::path(TemporaryFolder().GetPath()).parent_path());
    const TemporaryFolder inMemory(TemporaryFolder::Place::kInMemory);
    EXPECT_EQ("/dev/shm", fs::path(inMemory.GetPath()).parent_path());
}

TEST_F(TemporaryFolderTest, IsDeletedWithWhatItContains)
{
    std::string path;
    {
        const TemporaryFolder folder(TemporaryFolder::Place::kInMemory);
        path = folder.GetPath();
        ASSERT_TRUE(fs::create_directory(path + "/inner"));
        std::ofstream(path + "/inner/file") << "text";
        fs::permissions(path + "/inner", fs::perms::none);
    }
    EXPECT_FALSE(fs::exists(path));
}
