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
    EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath(path)) << path;
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

TEST(PathSpec, BeginsEmpty) { EXPECT_EQ("", GFileSystemSpec().GetFullPath()); }

TEST(PathSpec, ConvertsToAString)
{
    const std::string text = Spec("/a/b");
    EXPECT_EQ("/a/b", text);
}

TEST(PathSpec, KeepsNoTrailingSeparator)
{
    EXPECT_EQ("/a", Spec("/a/").GetFullPath());
    EXPECT_EQ("/a/b", Spec("/a/b///").GetFullPath());
    EXPECT_EQ("/", Spec("/").GetFullPath());
    EXPECT_EQ("", Spec("//").GetFullPath());
}

TEST(PathSpec, RefusesARelativePathAndKeepsItsOwn)
{
    GFileSystemSpec spec = Spec("/a");
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, spec.SetFullPath("relative"));
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, spec.SetFullPath("./a"));
    EXPECT_EQ("/a", spec.GetFullPath());
}

TEST(PathSpec, AcceptsAnEmptyPath)
{
    GFileSystemSpec spec = Spec("/a");
    EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath(""));
    EXPECT_EQ("", spec.GetFullPath());
}

TEST(PathSpec, ZeroByteEndsThePath)
{
    EXPECT_EQ("/a", Spec(std::string("/a\0/b", 5)).GetFullPath());
}

TEST(PathSpec, AcceptsItsOwnPath)
{
    GFileSystemSpec spec = Spec("/a/b");
    EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath(spec.GetFullPath()));
    EXPECT_EQ("/a/b", spec.GetFullPath());
}

TEST(PathSpecAppend, AddsOneSeparator)
{
    EXPECT_EQ("/a/x", Appended("/a/", "/x/"));
    EXPECT_EQ("/a/x/y", Appended("/a", "x/y"));
    EXPECT_EQ("/a/x//y", Appended("/a", "//x//y//"));
    EXPECT_EQ("/x", Appended("/", "x"));
}

TEST(PathSpecAppend, ComponentOfSeparatorsChangesNothing)
{
    EXPECT_EQ("/a", Appended("/a", ""));
    EXPECT_EQ("/a", Appended("/a", "///"));
    EXPECT_EQ("", Appended("", "///"));
}

TEST(PathSpecAppend, AppendToAnEmptyPathBeginsAtTheRoot)
{
    EXPECT_EQ("/component", Appended("", "component"));
}

TEST(PathSpecAppend, ReturnsTheObjectItself)
{
    GFileSystemSpec spec = Spec("/a");
    EXPECT_EQ(&spec, &spec.AppendPathComponent("b"));
    EXPECT_EQ(&spec, &spec.AppendPathComponent("/"));
    EXPECT_EQ(&spec, &spec.RemoveLastPathComponent());
}

TEST(PathSpecAppend, TildeInAComponentIsNotExpanded) { EXPECT_EQ("/a/~", Appended("/a", "~")); }

TEST(PathSpecRemove, LeavesTheParent)
{
    EXPECT_EQ("/a", Parent("/a/b"));
    EXPECT_EQ("/a/b", Parent("/a/b/c"));
    EXPECT_EQ("/", Parent("/a"));
}

TEST(PathSpecRemove, ParentOfTheRootIsEmpty)
{
    EXPECT_EQ("", Parent("/"));
    EXPECT_EQ("", Parent(""));
}

TEST(PathSpecRemove, RemovesADoubleSeparator)
{
    EXPECT_EQ("/a", Parent("/a//b"));
    EXPECT_EQ("/", Parent("//a"));
}

TEST(PathSpecLast, HasNoSeparators)
{
    EXPECT_EQ("b", GFileSystemSpec::GetLastPathComponent("/a/b/"));
    EXPECT_EQ("b", GFileSystemSpec::GetLastPathComponent("/a/b"));
    EXPECT_EQ("", GFileSystemSpec::GetLastPathComponent("/"));
    EXPECT_EQ("", GFileSystemSpec::GetLastPathComponent(""));
    EXPECT_EQ("name", GFileSystemSpec::GetLastPathComponent("name"));
    EXPECT_EQ("name", GFileSystemSpec::GetLastPathComponent("name/"));
    EXPECT_EQ("a", GFileSystemSpec::GetLastPathComponent("/a"));
    EXPECT_EQ("a", GFileSystemSpec::GetLastPathComponent("/a/"));
}

TEST(PathSpecLast, IgnoresOnlyOneTrailingSeparator)
{
    EXPECT_EQ("", GFileSystemSpec::GetLastPathComponent("/a/b//"));
}

TEST(PathSpecLast, MemberAndStaticFunctionAgree)
{
    EXPECT_EQ("b c", Spec("/a/b c").GetLastPathComponent());
    EXPECT_EQ("", Spec("/").GetLastPathComponent());
    EXPECT_EQ("", GFileSystemSpec().GetLastPathComponent());
}

class PathSpecText : public testing::Test {
protected:
    // Runs the body in a new process, with a scratch folder as its working folder.
    template <class Body>
    void Inside(Body body)
    {
        const ScratchFolder scratch;
        const std::string folder = std::filesystem::canonical(scratch.Path());
        InFreshProcess([&] {
            ASSERT_EQ(0, chdir(folder.c_str()));
            body(folder);
        });
    }
};

TEST_F(PathSpecText, NullOrEmptyTextIsTheWorkingFolder)
{
    Inside([](const std::string& folder) {
        EXPECT_EQ(folder, GFileSystemSpec(nullptr).GetFullPath());
        EXPECT_EQ(folder, GFileSystemSpec("").GetFullPath());
        EXPECT_EQ(folder, GFileSystemSpec("\"\"").GetFullPath());
        EXPECT_EQ(folder, GFileSystem::OSGetCWD().GetFullPath());
    });
}

TEST_F(PathSpecText, PartialPathIsCompletedWithTheWorkingFolder)
{
    Inside([](const std::string& folder) {
        EXPECT_EQ(folder + "/rel/x", GFileSystemSpec("rel/x").GetFullPath());
        EXPECT_EQ(folder + "/rel/x", GFileSystemSpec("rel/x/").GetFullPath());
        EXPECT_EQ(folder + "/..", GFileSystemSpec("..").GetFullPath());
    });
}

TEST_F(PathSpecText, FullPathLosesOnlyItsTrailingSeparator)
{
    EXPECT_EQ("/tmp/a", GFileSystemSpec("/tmp/a/").GetFullPath());
    EXPECT_EQ("/", GFileSystemSpec("/").GetFullPath());
    EXPECT_EQ("/a/../b", GFileSystemSpec("/a/../b").GetFullPath());
}

TEST_F(PathSpecText, QuotesAtBothEndsAreRemoved)
{
    EXPECT_EQ("/tmp/a", GFileSystemSpec("\"/tmp/a\"").GetFullPath());
    EXPECT_EQ("/tmp/a", GFileSystemSpec("\"\"/tmp/a\"\"\"").GetFullPath());
    EXPECT_EQ("/tmp/a", GFileSystemSpec("\"/tmp/a").GetFullPath());
    EXPECT_EQ("/tmp/\"a\"/b", GFileSystemSpec("/tmp/\"a\"/b").GetFullPath());
}

}  // namespace
