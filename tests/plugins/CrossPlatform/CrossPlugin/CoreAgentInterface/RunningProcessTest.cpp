#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "CoreErrorCodes.h"
#include "GetPathToRunningProcess.h"
#include "ScratchFolder.h"
#include "SleepingProcess.h"

namespace {

// Uses unique process names, so that tests that run at the same time don't find each other's.
class RunningProcess : public testing::Test {
protected:
    static unsigned int Find(const std::string& name, std::string& folder)
    {
        folder = "before";
        return GetPathToRunningProcessExe(name, folder);
    }
    std::string UniqueName(const std::string& stem) const
    {
        return stem + std::to_string(getpid());
    }
    std::string Folder(const std::string& name) const
    {
        std::filesystem::create_directories(base + "/" + name);
        return base + "/" + name + "/";
    }

    ScratchFolder scratch;
    std::string base = std::filesystem::canonical(scratch.Path());
    std::string found;
};

TEST_F(RunningProcess, IsFoundWithItsFolderAndASeparator)
{
    const std::string name = UniqueName("Finder");
    const SleepingProcess process(Folder("a b") + name);
    EXPECT_EQ(CoreErrorCodes::kSuccess, Find(name, found));
    EXPECT_EQ(base + "/a b/", found);
}

TEST_F(RunningProcess, IsFoundByItsExecutableNotByItsFirstArgument)
{
    const std::string name = UniqueName("Executable");
    const std::string ownName = UniqueName("Called");
    const SleepingProcess process(Folder("bin") + name, ownName);
    EXPECT_EQ(CoreErrorCodes::kSuccess, Find(name, found));
    EXPECT_EQ(base + "/bin/", found);
    EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(ownName, found));
}

TEST_F(RunningProcess, IsFoundByItsWholeNameOnly)
{
    const std::string name = UniqueName("Whole");
    const SleepingProcess process(Folder("bin") + name);
    for (const std::string& other :
         {name + "x", "x" + name, name.substr(1), name.substr(0, name.size() - 1), std::string()}) {
        EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(other, found)) << other;
        EXPECT_EQ("before", found);
    }
}

TEST_F(RunningProcess, NameIsCaseSensitive)
{
    const std::string name = UniqueName("Case");
    const SleepingProcess process(Folder("bin") + name);
    EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(UniqueName("case"), found));
    EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(UniqueName("CASE"), found));
}

TEST_F(RunningProcess, FolderOfTheSameNameIsNotFound)
{
    const std::string name = UniqueName("Folder");
    const SleepingProcess process(Folder(name) + "program");
    EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(name, found));
}

TEST_F(RunningProcess, NameOfALinkToTheExecutableIsNotFound)
{
    const std::string name = UniqueName("Target");
    const SleepingProcess process(Folder("bin") + name);
    std::filesystem::create_symlink(base + "/bin/" + name, base + "/" + UniqueName("Link"));
    EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(UniqueName("Link"), found));
}

TEST_F(RunningProcess, EndedProcessIsNotFound)
{
    const std::string name = UniqueName("Ended");
    {
        const SleepingProcess process(Folder("bin") + name);
        ASSERT_EQ(CoreErrorCodes::kSuccess, Find(name, found));
    }
    EXPECT_EQ(CoreErrorCodes::kUnknownError, Find(name, found));
    EXPECT_EQ("before", found);
}

TEST_F(RunningProcess, LowestProcessNumberWins)
{
    const std::string name = UniqueName("Twin");
    const SleepingProcess first(Folder("first") + name);
    const SleepingProcess second(Folder("second") + name);
    ASSERT_EQ(CoreErrorCodes::kSuccess, Find(name, found));
    EXPECT_EQ(base + (first.Number() < second.Number() ? "/first/" : "/second/"), found);
}

TEST_F(RunningProcess, OwnProcessIsListed)
{
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_THAT(OSGetRunningExecutables(), testing::Contains(self.string()));
}

TEST_F(RunningProcess, ProcessesWithoutAnExecutableAreLeftOut)
{
    for (const std::string& path : OSGetRunningExecutables()) EXPECT_FALSE(path.empty());
}

TEST_F(RunningProcess, AnythingAtAPathExists)
{
    EXPECT_TRUE(OSPathExists(base));
    EXPECT_TRUE(OSPathExists(scratch.Write("file", "")));
    EXPECT_FALSE(OSPathExists(base + "/missing"));
    EXPECT_FALSE(OSPathExists(""));
}

}  // namespace
