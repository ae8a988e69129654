#include "GFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct FullPath {
    const char* path;
    bool isValid;
    const char* normal;
};

TEST(FileSystem, SeparatorIsASlash) { EXPECT_EQ("/", GFileSystem::OSGetPathSeparator()); }

TEST(FileSystem, PartialPathsAreThoseWithoutALeadingSeparator)
{
    for (const char* const path : {"", "a", "a/b", " /a", "~", "~/a", "\\a", "."}) {
        EXPECT_TRUE(GFileSystem::OSIsPartialPath(path)) << path;
    }
    for (const char* const path : {"/", "/a", "//", "/a/b/"}) {
        EXPECT_FALSE(GFileSystem::OSIsPartialPath(path)) << path;
    }
}

TEST(FileSystem, FullPathsLoseTheirTrailingSeparators)
{
    const FullPath kPaths[] = {
        {"/", true, "/"},        {"/a", true, "/a"},   {"/a/", true, "/a"},
        {"/a//", true, "/a"},    {"//a", true, "//a"}, {"/a//b///", true, "/a//b"},
        {"//", true, ""},        {"", false, ""},      {"a", false, "a"},
        {"a/b/", false, "a/b/"}, {"~/", false, "~/"},
    };
    for (const FullPath& row : kPaths) {
        std::string path = row.path;
        EXPECT_EQ(row.isValid, GFileSystem::OSIsValidFullPath(path)) << row.path;
        EXPECT_EQ(row.normal, path) << row.path;
    }
}

TEST(FileSystem, ExpansionDoesNotChangeOrdinaryPaths)
{
    for (const char* const text : {"/a/b", "a", "/a~", "/~", " ~", "a/~/b", "/\xC3\xA9", "//"}) {
        std::string path = text;
        EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path)) << text;
        EXPECT_EQ(text, path);
    }
}

TEST(FileSystem, ZeroByteEndsAPath)
{
    std::string path("/a\0b", 4);
    EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
    EXPECT_EQ("/a", path);
}

}  // namespace
