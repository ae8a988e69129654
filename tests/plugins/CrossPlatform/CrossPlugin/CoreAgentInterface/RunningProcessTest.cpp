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

// Names that no other process has, so that tests at the same time don't see each other's.
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

TEST_F(RunningProcess, GivesItsFolderWithASeparator)
{
    const std::string name = UniqueName("Finder");
    const SleepingProcess process(Folder("a b") + name);
    EXPECT_EQ(Find(name, found), 0U);
    EXPECT_EQ(found, base + "/a b/");
}

TEST_F(RunningProcess, IsKnownByItsExecutableNotByWhatItCallsItself)
{
    const std::string name = UniqueName("Executable");
    const std::string ownName = UniqueName("Called");
    const SleepingProcess process(Folder("bin") + name, ownName);
    EXPECT_EQ(Find(name, found), 0U);
    EXPECT_EQ(found, base + "/bin/");
    EXPECT_EQ(Find(ownName, found), CoreErrorCodes::kUnknownError);
}

TEST_F(RunningProcess, IsKnownByAllOfItsName)
{
    const std::string name = UniqueName("Whole");
    const SleepingProcess process(Folder("bin") + name);
    for (const std::string& other :
         {name + "x", "x" + name, name.substr(1), name.substr(0, name.size() - 1), std::string()}) {
        EXPECT_EQ(Find(other, found), CoreErrorCodes::kUnknownError) << other;
        EXPECT_EQ(found, "before");
    }
}

TEST_F(RunningProcess, CaseCounts)
{
    const std::string name = UniqueName("Case");
    const SleepingProcess process(Folder("bin") + name);
    EXPECT_EQ(Find(UniqueName("case"), found), CoreErrorCodes::kUnknownError);
    EXPECT_EQ(Find(UniqueName("CASE"), found), CoreErrorCodes::kUnknownError);
}

TEST_F(RunningProcess, FolderOfThatNameIsNoProcess)
{
    const std::string name = UniqueName("Folder");
    const SleepingProcess process(Folder(name) + "program");
    EXPECT_EQ(Find(name, found), CoreErrorCodes::kUnknownError);
}

TEST_F(RunningProcess, LinkCountsByItsTarget)
{
    const std::string name = UniqueName("Target");
    const SleepingProcess process(Folder("bin") + name);
    std::filesystem::create_symlink(base + "/bin/" + name, base + "/" + UniqueName("Link"));
    EXPECT_EQ(Find(UniqueName("Link"), found), CoreErrorCodes::kUnknownError);
}

TEST_F(RunningProcess, EndedOneIsNotFound)
{
    const std::string name = UniqueName("Ended");
    {
        const SleepingProcess process(Folder("bin") + name);
        ASSERT_EQ(Find(name, found), 0U);
    }
    EXPECT_EQ(Find(name, found), CoreErrorCodes::kUnknownError);
    EXPECT_EQ(found, "before");
}

TEST_F(RunningProcess, LowestNumberWins)
{
    const std::string name = UniqueName("Twin");
    const SleepingProcess first(Folder("first") + name);
    const SleepingProcess second(Folder("second") + name);
    ASSERT_EQ(Find(name, found), 0U);
    EXPECT_EQ(found, base + (first.Number() < second.Number() ? "/first/" : "/second/"));
}

TEST_F(RunningProcess, OwnProcessIsAmongThem)
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
