#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "GFileSystem.h"
#include "GFileSystemSpec.h"
#include "Platform.h"
#include "RecordingLog.h"

using testing::AnyOf;

namespace {

std::string Expanded(std::string path)
{
    EXPECT_EQ(0U, GFileSystem::OSExpandPath(path));
    return path;
}

TEST(ExpandPathContract, LeavesPlainAndEmptyPathsUnchanged)
{
    EXPECT_EQ("/a/b c", Expanded("/a/b c"));
    EXPECT_EQ("relative/%20", Expanded("relative/%20"));
    EXPECT_EQ("", Expanded(""));
}

TEST(ExpandPathContract, ReplacesALeadingTildeByTheHomeFolder)
{
    EXPECT_EQ(Platform::HomeFolder(), Expanded("~"));
    EXPECT_EQ(Platform::HomeFolder() + "/x", Expanded("~/x"));
    EXPECT_EQ("/a/~", Expanded("/a/~"));
    EXPECT_EQ("~no-such-user-here/x", Expanded("~no-such-user-here/x"));
}

TEST(ExpandPathContract, AcceptsUTF8)
{
    EXPECT_EQ("/\xE3\x82\xA9", Expanded("/\xE3\x82\xA9"));
    EXPECT_EQ(Platform::kDecomposesPaths ? "/cafe\xCC\x81" : "/caf\xC3\xA9",
              Expanded("/caf\xC3\xA9"));
}

TEST(ExpandPathContract, ReadsInvalidUTF8AsMacRomanAndLogsAWarning)
{
    RecordingLog log;
    EXPECT_EQ(Platform::kDecomposesPaths ? "/cafe\xCC\x81" : "/caf\xC3\xA9", Expanded("/caf\x8E"));
    ASSERT_EQ(1U, log.Reports().size());
    EXPECT_EQ(
        "GFileSystem::OSExpandPath(), called with invalid UTF8 Path. Attempting convserion "
        "with other encodings.",
        log.Reports()[0].message);
}

TEST(ExpandPathContract, KeepsDoubleSlashesUnlessThePlatformCleansPaths)
{
    const std::string path = Expanded("/a//b");
    std::printf("/a//b is expanded to %s\n", path.c_str());
    EXPECT_THAT(path, AnyOf("/a//b", Platform::kMayCleanPaths ? "/a/b" : "/a//b"));
}

TEST(ExpandPathContract, KeepsAByteOrderMarkUnlessThePlatformDropsIt)
{
    const std::string kept = "\xEF\xBB\xBF/a";
    const std::string path = Expanded(kept);
    std::printf("the byte order mark is %s\n", path == kept ? "kept" : "dropped");
    const std::string dropped = "/a";
    if (Platform::kMayCleanPaths) {
        EXPECT_THAT(path, AnyOf(kept, dropped));
    } else {
        EXPECT_EQ(Platform::kDropsByteOrderMark ? dropped : kept, path);
    }
}

TEST(ExpandPathContract, GFileSystemSpecRemovesQuotesAndATrailingSlash)
{
    EXPECT_EQ("/tmp/a", GFileSystemSpec("\"/tmp/a\"").GetFullPath());
    EXPECT_EQ(Platform::HomeFolder() + "/x", GFileSystemSpec("~/x/").GetFullPath());
}

}  // namespace
