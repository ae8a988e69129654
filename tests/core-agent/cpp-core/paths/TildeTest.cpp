#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "FreshProcess.h"
#include "GFileSystem.h"
#include "GFileSystemSpec.h"

namespace {

constexpr char kUnknownUser[] = "~typeloft-no-such-user";

std::string Expanded(const std::string& text)
{
    std::string path = text;
    EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path)) << text;
    return path;
}

// The entry of the user who runs the test in the user database; empty if there is none.
struct User {
    std::string name;
    std::string folder;
};

User CurrentUser()
{
    const passwd* const entry = getpwuid(getuid());
    if (entry == nullptr) return User();
    return {entry->pw_name, entry->pw_dir};
}

// Each test changes the environment in a process of its own.
class Tilde : public testing::Test {
protected:
    template <class Body>
    void WithHome(const char* home, Body body)
    {
        InFreshProcess([&] {
            if (home == nullptr) {
                ASSERT_EQ(0, unsetenv("HOME"));
            } else {
                ASSERT_EQ(0, setenv("HOME", home, 1));
            }
            body();
        });
    }
};

TEST_F(Tilde, IsReplacedByTheHomeFolder)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ("/home/of/test", Expanded("~"));
        EXPECT_EQ("/home/of/test/", Expanded("~/"));
        EXPECT_EQ("/home/of/test/x/y", Expanded("~/x/y"));
        EXPECT_EQ("/home/of/test/~", Expanded("~/~"));
    });
}

TEST_F(Tilde, TrailingSeparatorOfHomeIsNotDoubled)
{
    WithHome("/home/of/test/", [] {
        EXPECT_EQ("/home/of/test/x", Expanded("~/x"));
        GFileSystemSpec spec;
        EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath("~"));
        EXPECT_EQ("/home/of/test", spec.GetFullPath());
    });
}

TEST_F(Tilde, HomeMayBeTheRoot)
{
    WithHome("/", [] {
        EXPECT_EQ("/", Expanded("~"));
        EXPECT_EQ("/x", Expanded("~/x"));
    });
}

TEST_F(Tilde, WithoutHomeTheUserDatabaseIsUsed)
{
    const User user = CurrentUser();
    if (user.folder.empty()) GTEST_SKIP() << "the user database doesn't know who runs this";
    for (const char* const home : {static_cast<const char*>(nullptr), ""}) {
        WithHome(home, [&] {
            EXPECT_EQ(user.folder, Expanded("~"));
            EXPECT_EQ(GFileSystemSpec(user.folder.c_str()).AppendPathComponent("x").GetFullPath(),
                      GFileSystemSpec("~/x").GetFullPath());
        });
    }
}

TEST_F(Tilde, NameIsLookedUpInTheUserDatabase)
{
    const User user = CurrentUser();
    if (user.folder.empty()) GTEST_SKIP() << "the user database doesn't know who runs this";
    WithHome("/home/of/test", [&] {
        EXPECT_EQ(user.folder, Expanded("~" + user.name));
        EXPECT_EQ((user.folder == "/" ? "" : user.folder) + "/x", Expanded("~" + user.name + "/x"));
    });
}

TEST_F(Tilde, UnknownUserNameIsUnchanged)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ(kUnknownUser, Expanded(kUnknownUser));
        EXPECT_EQ(std::string(kUnknownUser) + "/x", Expanded(std::string(kUnknownUser) + "/x"));
    });
}

TEST_F(Tilde, UnknownUserNameIsARelativePath)
{
    GFileSystemSpec spec;
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, spec.SetFullPath(kUnknownUser));
    InFreshProcess([] {
        ASSERT_EQ(0, chdir("/"));
        EXPECT_EQ(std::string("/") + kUnknownUser, GFileSystemSpec(kUnknownUser).GetFullPath());
    });
}

TEST_F(Tilde, IsExpandedOnlyAtTheStart)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ("/~", Expanded("/~"));
        EXPECT_EQ(" ~", Expanded(" ~"));
    });
}

TEST_F(Tilde, IsExpandedInQuotesAndInSetFullPath)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ("/home/of/test/x", GFileSystemSpec("\"~/x\"").GetFullPath());
        GFileSystemSpec spec;
        EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath("~/x/"));
        EXPECT_EQ("/home/of/test/x", spec.GetFullPath());
    });
}

}  // namespace
