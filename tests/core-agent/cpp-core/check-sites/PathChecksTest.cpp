#include <unistd.h>

#include "ExpectedReport.h"
#include "FreshProcess.h"
#include "GFileSystem.h"
#include "GFileSystemSpec.h"
#include "ScratchFolder.h"

namespace {

constexpr char kSpecFile[] = "core-agent/cpp-core/src/GFileSystemSpec.";
constexpr char kFile[] = "core-agent/cpp-core/src/GFileSystem_Posix.";
constexpr char kInvalid[] = "!(strCopy.empty() || GFileSystem::OSIsValidFullPath(strCopy))";

class PathChecks : public testing::Test {
protected:
    static ExpectedReport Invalid()
    {
        return {"FileSystem", kInvalid, 0x04000000, 1, "CoreErrorCodes::kInvalidParam", kSpecFile};
    }
    static ExpectedReport WorkingFolder()
    {
        return {"FileSystem",
                "NULL == getcwd(&curPath[0], PATH_MAX)",
                0x01000000,
                1,
                "CoreErrorCodes::kError",
                kFile};
    }
    RecordingLog log;
};

TEST_F(PathChecks, RelativePath)
{
    GFileSystemSpec spec;
    EXPECT_EQ(spec.SetFullPath("relative"), CoreErrorCodes::kInvalidParam);
    ExpectReports(log.Reports(), {Invalid()});
}

TEST_F(PathChecks, EmptyPathIsNoFault)
{
    GFileSystemSpec spec;
    EXPECT_EQ(spec.SetFullPath(""), 0U);
    ExpectReports(log.Reports(), {});
}

// Enters folders below `start` until the path of the working folder has at least so many bytes.
void EnterDeepFolder(const std::string& start, std::size_t bytes)
{
    ASSERT_EQ(chdir(start.c_str()), 0);
    const std::string name(100, 'd');
    for (std::size_t size = start.size(); size < bytes; size += name.size() + 1) {
        ASSERT_EQ(mkdir(name.c_str(), 0755), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
    }
}

TEST_F(PathChecks, WorkingFolderOfMoreThanTheBufferIsReportedAndEmpty)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        EnterDeepFolder(scratch.Path(), 1024);
        EXPECT_EQ(GFileSystem::OSGetCWD().GetFullPath(), "");
        ExpectReports(log.Reports(), {WorkingFolder()});
    });
}

TEST_F(PathChecks, PartialPathInAFolderTooDeepStandsBelowTheRoot)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        EnterDeepFolder(scratch.Path(), 1024);
        EXPECT_EQ(GFileSystemSpec("rel/x").GetFullPath(), "/rel/x");
        ExpectReports(log.Reports(), {WorkingFolder()});
    });
}

TEST_F(PathChecks, WorkingFolderThatFitsIsTold)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        EnterDeepFolder(scratch.Path(), 800);
        const std::string path = GFileSystem::OSGetCWD().GetFullPath();
        EXPECT_EQ(path.compare(0, scratch.Path().size(), scratch.Path()), 0) << path;
        EXPECT_GE(path.size(), 800U);
        ExpectReports(log.Reports(), {});
    });
}

TEST_F(PathChecks, WorkingFolderThatIsGoneIsReportedAndEmpty)
{
    const ScratchFolder scratch;
    InFreshProcess([&] {
        ASSERT_EQ(mkdir(scratch.Path("gone").c_str(), 0755), 0);
        ASSERT_EQ(chdir(scratch.Path("gone").c_str()), 0);
        ASSERT_EQ(rmdir(scratch.Path("gone").c_str()), 0);
        EXPECT_EQ(GFileSystem::OSGetCWD().GetFullPath(), "");
        ExpectReports(log.Reports(), {WorkingFolder()});
    });
}

}  // namespace
