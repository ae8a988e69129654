#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "FreshProcess.h"
#include "GFileSystem.h"
#include "GFileSystemSpec.h"

namespace {

constexpr char kNobody[] = "~typeloft-no-such-user";

std::string Expanded(const std::string& text)
{
    std::string path = text;
    EXPECT_EQ(GFileSystem::OSExpandPath(path), 0U) << text;
    return path;
}

// The user database's word on the user who runs the test.
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

// The environment is changed in a process of its own.
class Tilde : public testing::Test {
protected:
    template <class Body>
    void WithHome(const char* home, Body body)
    {
        InFreshProcess([&] {
            if (home == nullptr) {
                ASSERT_EQ(unsetenv("HOME"), 0);
            } else {
                ASSERT_EQ(setenv("HOME", home, 1), 0);
            }
            body();
        });
    }
};

TEST_F(Tilde, IsTheHomeFolder)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ(Expanded("~"), "/home/of/test");
        EXPECT_EQ(Expanded("~/"), "/home/of/test/");
        EXPECT_EQ(Expanded("~/x/y"), "/home/of/test/x/y");
        EXPECT_EQ(Expanded("~/~"), "/home/of/test/~");
    });
}

TEST_F(Tilde, HomeWithATrailingSeparatorGivesNoDoubleOne)
{
    WithHome("/home/of/test/", [] {
        EXPECT_EQ(Expanded("~/x"), "/home/of/test/x");
        GFileSystemSpec spec;
        EXPECT_EQ(spec.SetFullPath("~"), 0U);
        EXPECT_EQ(spec.GetFullPath(), "/home/of/test");
    });
}

TEST_F(Tilde, HomeMayBeTheRoot)
{
    WithHome("/", [] {
        EXPECT_EQ(Expanded("~"), "/");
        EXPECT_EQ(Expanded("~/x"), "/x");
    });
}

TEST_F(Tilde, WithoutHomeTheUserDatabaseTells)
{
    const User user = CurrentUser();
    if (user.folder.empty()) GTEST_SKIP() << "the user database doesn't know who runs this";
    for (const char* const home : {static_cast<const char*>(nullptr), ""}) {
        WithHome(home, [&] {
            EXPECT_EQ(Expanded("~"), user.folder);
            EXPECT_EQ(GFileSystemSpec("~/x").GetFullPath(),
                      GFileSystemSpec(user.folder.c_str()).AppendPathComponent("x").GetFullPath());
        });
    }
}

TEST_F(Tilde, NameIsLookedUpInTheUserDatabase)
{
    const User user = CurrentUser();
    if (user.folder.empty()) GTEST_SKIP() << "the user database doesn't know who runs this";
    WithHome("/home/of/test", [&] {
        EXPECT_EQ(Expanded("~" + user.name), user.folder);
        EXPECT_EQ(Expanded("~" + user.name + "/x"), (user.folder == "/" ? "" : user.folder) + "/x");
    });
}

TEST_F(Tilde, UnknownNameStays)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ(Expanded(kNobody), kNobody);
        EXPECT_EQ(Expanded(std::string(kNobody) + "/x"), std::string(kNobody) + "/x");
    });
}

TEST_F(Tilde, UnknownNameIsARelativePath)
{
    GFileSystemSpec spec;
    EXPECT_EQ(spec.SetFullPath(kNobody), CoreErrorCodes::kInvalidParam);
    InFreshProcess([] {
        ASSERT_EQ(chdir("/"), 0);
        EXPECT_EQ(GFileSystemSpec(kNobody).GetFullPath(), std::string("/") + kNobody);
    });
}

TEST_F(Tilde, CountsAtTheStartAlone)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ(Expanded("/~"), "/~");
        EXPECT_EQ(Expanded(" ~"), " ~");
    });
}

TEST_F(Tilde, IsExpandedInQuotesAndInSetFullPath)
{
    WithHome("/home/of/test", [] {
        EXPECT_EQ(GFileSystemSpec("\"~/x\"").GetFullPath(), "/home/of/test/x");
        GFileSystemSpec spec;
        EXPECT_EQ(spec.SetFullPath("~/x/"), 0U);
        EXPECT_EQ(spec.GetFullPath(), "/home/of/test/x");
    });
}

}  // namespace
