#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "FreshProcess.h"
#include "GetPathToRunningProcess.h"

namespace {

void Set(const char* name, const char* value)
{
    ASSERT_EQ(0, value == nullptr ? unsetenv(name) : setenv(name, value, 1));
}

void ExpectFolder(const char* dataHome, const char* home, const std::string& expected)
{
    InFreshProcess([&] {
        Set("XDG_DATA_HOME", dataHome);
        Set("HOME", home);
        std::string folder = "before";
        GetUsersAppDataDirectory(folder);
        EXPECT_EQ(expected, folder);
    });
}

TEST(AppDataDirectory, IsTheDataFolderOfTheEnvironment)
{
    ExpectFolder("/data", "/home/of/test", "/data");
    ExpectFolder("/data", nullptr, "/data");
}

TEST(AppDataDirectory, DefaultIsInTheHomeFolder)
{
    ExpectFolder(nullptr, "/home/of/test", "/home/of/test/.local/share");
    ExpectFolder("", "/home/of/test", "/home/of/test/.local/share");
    ExpectFolder(nullptr, "/home/of/test/", "/home/of/test/.local/share");
    ExpectFolder(nullptr, "/", "/.local/share");
}

TEST(AppDataDirectory, WithoutHomeTheUserDatabaseIsUsed)
{
    const passwd* const entry = getpwuid(getuid());
    if (entry == nullptr) GTEST_SKIP() << "the user database doesn't know who runs this";
    const std::string home = entry->pw_dir;
    ExpectFolder(nullptr, nullptr, (home == "/" ? "" : home) + "/.local/share");
}

}  // namespace
