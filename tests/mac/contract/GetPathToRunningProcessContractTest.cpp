#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "CoreErrorCodes.h"
#include "GetPathToRunningProcess.h"
#include "Platform.h"
#include "ScratchFolder.h"

namespace {

TEST(RunningProcessContract, FindsTheFolderOfARunningExecutable)
{
    const std::filesystem::path running = Platform::RunningExecutable();
    std::string folder;
    EXPECT_EQ(0U, GetPathToRunningProcessExe(running.filename().string(), folder));
    EXPECT_EQ(running.parent_path().string() + "/", folder);
}

TEST(RunningProcessContract, ReturnsUnknownErrorForAnyOtherName)
{
    // Makes sure that the list of running processes isn't empty.
    (void)Platform::RunningExecutable();
    std::string folder = "as it was";
    EXPECT_EQ(CoreErrorCodes::kUnknownError, GetPathToRunningProcessExe("no such name", folder));
    EXPECT_EQ(CoreErrorCodes::kUnknownError, GetPathToRunningProcessExe("", folder));
    EXPECT_EQ("as it was", folder);
}

TEST(LaunchFileContract, IsReadFromTheUsersLibraryFolder)
{
    const std::string library = Platform::LibraryFolder();
    if (library.empty()) GTEST_SKIP() << "a test must not write to the real library folder";
    std::string folder;
    GetUsersAppDataDirectory(folder);
    EXPECT_EQ(library, folder);

    std::filesystem::remove_all(library + "/Maker");
    std::string value = "as it was";
    EXPECT_EQ(CoreErrorCodes::kUnknownError, GetConfiguredPath("Maker", "a.conf", "key", value));
    EXPECT_EQ("as it was", value);
    std::filesystem::create_directories(library + "/Maker");
    std::ofstream(library + "/Maker/a.conf") << "# none\nkey=/a b/Vexcor\r\n";
    EXPECT_EQ(0U, GetConfiguredPath("Maker", "a.conf", "key", value));
    EXPECT_EQ("/a b/Vexcor", value);
    EXPECT_EQ(CoreErrorCodes::kUnknownError, GetConfiguredPath("Maker", "a.conf", "other", value));
}

TEST(PathExistsContract, IsTrueForFilesAndFolders)
{
    const ScratchFolder scratch;
    EXPECT_TRUE(OSPathExists(scratch.Path()));
    EXPECT_TRUE(OSPathExists(scratch.Write("caf\xC3\xA9", "x")));
    EXPECT_FALSE(OSPathExists(scratch.Path("none")));
    EXPECT_FALSE(OSPathExists(""));
}

}  // namespace
