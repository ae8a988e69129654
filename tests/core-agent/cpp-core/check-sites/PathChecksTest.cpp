#include <unistd.h>

#include "ExpectedReport.h"
#include "FreshProcess.h"
#include "GFileSystem.h"
#include "GFileSystemSpec.h"
#include "ScratchFolder.h"

namespace {

constexpr char kSpecFile[] = "core-agent/cpp-core/src/GFileSystemSpec.";
constexpr char kPosixFile[] = "core-agent/cpp-core/src/GFileSystem_Posix.";
constexpr char kInvalid[] = "!(strCopy.empty() || GFileSystem::OSIsValidFullPath(strCopy))";

class PathChecks : public testing::Test {
protected:
    static ExpectedReport Invalid()
    {
        return {"FileSystem",
                kInvalid,
                CoreErrorCodes::kInvalidParam,
                1,
                "CoreErrorCodes::kInvalidParam",
                kSpecFile};
    }
    static ExpectedReport WorkingFolder()
    {
        return {"FileSystem",
                "NULL == getcwd(&curPath[0], PATH_MAX)",
                CoreErrorCodes::kError,
                1,
                "CoreErrorCodes::kError",
                kPosixFile};
    }
    RecordingLog log;
};

TEST_F(PathChecks, RelativePathIsReported)
{
    GFileSystemSpec spec;
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, spec.SetFullPath("relative"));
    ExpectReports(log.Reports(), {Invalid()});
}

TEST_F(PathChecks, EmptyPathIsNotReported)
{
    GFileSystemSpec spec;
    EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath(""));
    ExpectReports(log.Reports(), {});
}

// Makes and enters folders below `start` until the path of the working folder has at least `bytes`
// bytes.
void EnterDeepFolder(const std::string& start, std::size_t bytes)
{
    ASSERT_EQ(0, chdir(start.c_str()));
    const std::string name(100, 'd');
    for (std::size_t size = start.size(); size < bytes; size += name.size() + 1) {
        ASSERT_EQ(0, mkdir(name.c_str(), 0755));
        ASSERT_EQ(0, chdir(name.c_str()));
    }
}

TEST_F(PathChecks, WorkingFolderLongerThanTheBufferIsReportedAndEmpty)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        EnterDeepFolder(scratch.Path(), 1024);
        EXPECT_EQ("", GFileSystem::OSGetCWD().GetFullPath());
        ExpectReports(log.Reports(), {WorkingFolder()});
    });
}

TEST_F(PathChecks, PartialPathInATooDeepFolderIsCompletedFromTheRoot)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        EnterDeepFolder(scratch.Path(), 1024);
        EXPECT_EQ("/rel/x", GFileSystemSpec("rel/x").GetFullPath());
        ExpectReports(log.Reports(), {WorkingFolder()});
    });
}

TEST_F(PathChecks, WorkingFolderThatFitsIsReturned)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        EnterDeepFolder(scratch.Path(), 800);
        const std::string path = GFileSystem::OSGetCWD().GetFullPath();
        EXPECT_EQ(0, path.compare(0, scratch.Path().size(), scratch.Path())) << path;
        EXPECT_GE(path.size(), 800U);
        ExpectReports(log.Reports(), {});
    });
}

TEST_F(PathChecks, RemovedWorkingFolderIsReportedAndEmpty)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        ASSERT_EQ(0, mkdir(scratch.Path("gone").c_str(), 0755));
        ASSERT_EQ(0, chdir(scratch.Path("gone").c_str()));
        ASSERT_EQ(0, rmdir(scratch.Path("gone").c_str()));
        EXPECT_EQ("", GFileSystem::OSGetCWD().GetFullPath());
        ExpectReports(log.Reports(), {WorkingFolder()});
    });
}

}  // namespace
