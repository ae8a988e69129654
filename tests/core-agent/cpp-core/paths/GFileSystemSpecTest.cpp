#include "GFileSystemSpec.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "FreshProcess.h"
#include "GFileSystem.h"
#include "ScratchFolder.h"

namespace {

GFileSystemSpec Spec(const std::string& path)
{
    GFileSystemSpec spec;
    EXPECT_EQ(spec.SetFullPath(path), 0U) << path;
    return spec;
}

std::string Parent(const std::string& path)
{
    return Spec(path).RemoveLastPathComponent().GetFullPath();
}

std::string Appended(const std::string& path, const std::string& component)
{
    return Spec(path).AppendPathComponent(component).GetFullPath();
}

TEST(PathSpec, BeginsEmpty) { EXPECT_EQ(GFileSystemSpec().GetFullPath(), ""); }

TEST(PathSpec, IsATextItself)
{
    const std::string text = Spec("/a/b");
    EXPECT_EQ(text, "/a/b");
}

TEST(PathSpec, KeepsNoTrailingSeparator)
{
    EXPECT_EQ(Spec("/a/").GetFullPath(), "/a");
    EXPECT_EQ(Spec("/a/b///").GetFullPath(), "/a/b");
    EXPECT_EQ(Spec("/").GetFullPath(), "/");
    EXPECT_EQ(Spec("//").GetFullPath(), "");
}

TEST(PathSpec, RefusesARelativePathAndKeepsItsOwn)
{
    GFileSystemSpec spec = Spec("/a");
    EXPECT_EQ(spec.SetFullPath("relative"), CoreErrorCodes::kInvalidParam);
    EXPECT_EQ(spec.SetFullPath("./a"), CoreErrorCodes::kInvalidParam);
    EXPECT_EQ(spec.GetFullPath(), "/a");
}

TEST(PathSpec, AcceptsAnEmptyPath)
{
    GFileSystemSpec spec = Spec("/a");
    EXPECT_EQ(spec.SetFullPath(""), 0U);
    EXPECT_EQ(spec.GetFullPath(), "");
}

TEST(PathSpec, ZeroByteEndsThePath)
{
    EXPECT_EQ(Spec(std::string("/a\0/b", 5)).GetFullPath(), "/a");
}

TEST(PathSpec, MayBeGivenItsOwnPath)
{
    GFileSystemSpec spec = Spec("/a/b");
    EXPECT_EQ(spec.SetFullPath(spec.GetFullPath()), 0U);
    EXPECT_EQ(spec.GetFullPath(), "/a/b");
}

TEST(PathSpecAppend, AddsOneSeparator)
{
    EXPECT_EQ(Appended("/a/", "/x/"), "/a/x");
    EXPECT_EQ(Appended("/a", "x/y"), "/a/x/y");
    EXPECT_EQ(Appended("/a", "//x//y//"), "/a/x//y");
    EXPECT_EQ(Appended("/", "x"), "/x");
}

TEST(PathSpecAppend, NothingChangesNothing)
{
    EXPECT_EQ(Appended("/a", ""), "/a");
    EXPECT_EQ(Appended("/a", "///"), "/a");
    EXPECT_EQ(Appended("", "///"), "");
}

TEST(PathSpecAppend, BeginsAtTheRootOfAnEmptyPath)
{
    EXPECT_EQ(Appended("", "component"), "/component");
}

TEST(PathSpecAppend, GivesTheObjectItself)
{
    GFileSystemSpec spec = Spec("/a");
    EXPECT_EQ(&spec.AppendPathComponent("b"), &spec);
    EXPECT_EQ(&spec.AppendPathComponent("/"), &spec);
    EXPECT_EQ(&spec.RemoveLastPathComponent(), &spec);
}

TEST(PathSpecAppend, TildeOfAComponentIsAName) { EXPECT_EQ(Appended("/a", "~"), "/a/~"); }

TEST(PathSpecRemove, GivesTheParent)
{
    EXPECT_EQ(Parent("/a/b"), "/a");
    EXPECT_EQ(Parent("/a/b/c"), "/a/b");
    EXPECT_EQ(Parent("/a"), "/");
}

TEST(PathSpecRemove, EndsAtAnEmptyPath)
{
    EXPECT_EQ(Parent("/"), "");
    EXPECT_EQ(Parent(""), "");
}

TEST(PathSpecRemove, InnerDoubleSeparatorGoesToo)
{
    EXPECT_EQ(Parent("/a//b"), "/a");
    EXPECT_EQ(Parent("//a"), "/");
}

TEST(PathSpecLast, IsWithoutSeparators)
{
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("/a/b/"), "b");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("/a/b"), "b");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("/"), "");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent(""), "");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("name"), "name");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("name/"), "name");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("/a"), "a");
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("/a/"), "a");
}

TEST(PathSpecLast, StepsOverOneTrailingSeparatorOnly)
{
    EXPECT_EQ(GFileSystemSpec::GetLastPathComponent("/a/b//"), "");
}

TEST(PathSpecLast, OfTheObjectIsThatOfItsPath)
{
    EXPECT_EQ(Spec("/a/b c").GetLastPathComponent(), "b c");
    EXPECT_EQ(Spec("/").GetLastPathComponent(), "");
    EXPECT_EQ(GFileSystemSpec().GetLastPathComponent(), "");
}

class PathSpecText : public testing::Test {
protected:
    // In a working folder of its own.
    template <class Body>
    void Inside(Body body)
    {
        const ScratchFolder scratch;
        const std::string folder = std::filesystem::canonical(scratch.Path());
        InFreshProcess([&] {
            ASSERT_EQ(chdir(folder.c_str()), 0);
            body(folder);
        });
    }
};

TEST_F(PathSpecText, NothingIsTheWorkingFolder)
{
    Inside([](const std::string& folder) {
        EXPECT_EQ(GFileSystemSpec(nullptr).GetFullPath(), folder);
        EXPECT_EQ(GFileSystemSpec("").GetFullPath(), folder);
        EXPECT_EQ(GFileSystemSpec("\"\"").GetFullPath(), folder);
        EXPECT_EQ(GFileSystem::OSGetCWD().GetFullPath(), folder);
    });
}

TEST_F(PathSpecText, PartialPathIsCompleted)
{
    Inside([](const std::string& folder) {
        EXPECT_EQ(GFileSystemSpec("rel/x").GetFullPath(), folder + "/rel/x");
        EXPECT_EQ(GFileSystemSpec("rel/x/").GetFullPath(), folder + "/rel/x");
        EXPECT_EQ(GFileSystemSpec("..").GetFullPath(), folder + "/..");
    });
}

TEST_F(PathSpecText, FullPathIsTakenAsItIs)
{
    EXPECT_EQ(GFileSystemSpec("/tmp/a/").GetFullPath(), "/tmp/a");
    EXPECT_EQ(GFileSystemSpec("/").GetFullPath(), "/");
    EXPECT_EQ(GFileSystemSpec("/a/../b").GetFullPath(), "/a/../b");
}

TEST_F(PathSpecText, QuotesAtBothEndsGo)
{
    EXPECT_EQ(GFileSystemSpec("\"/tmp/a\"").GetFullPath(), "/tmp/a");
    EXPECT_EQ(GFileSystemSpec("\"\"/tmp/a\"\"\"").GetFullPath(), "/tmp/a");
    EXPECT_EQ(GFileSystemSpec("\"/tmp/a").GetFullPath(), "/tmp/a");
    EXPECT_EQ(GFileSystemSpec("/tmp/\"a\"/b").GetFullPath(), "/tmp/\"a\"/b");
}

}  // namespace
