#include <gtest/gtest.h>

#include "GetPathToRunningProcess.h"
#include "Workspace.h"

namespace {

TEST(RunningApplications, FirstListedProcessWins)
{
    SetRunningApplications({"/b/Other", "/b/Vexcor", "/a/Vexcor"});
    std::string folder;
    EXPECT_EQ(0U, GetPathToRunningProcessExe("Vexcor", folder));
    EXPECT_EQ("/b/", folder);
}

TEST(RunningApplications, EntryWithoutAnExecutableIsSkipped)
{
    SetRunningApplications({"", "/a/Vexcor"});
    EXPECT_EQ(std::vector<std::string>{"/a/Vexcor"}, OSGetRunningExecutables());
}

TEST(RunningApplications, NamesAreComparedWithCase)
{
    SetRunningApplications({"/a/vexcor", "/a/VEXCOR", "/a/Vexcor2"});
    std::string folder;
    EXPECT_NE(0U, GetPathToRunningProcessExe("Vexcor", folder));
}

TEST(RunningApplications, ListIsEmptyIfNothingRuns)
{
    SetRunningApplications({});
    EXPECT_TRUE(OSGetRunningExecutables().empty());
}

}  // namespace
