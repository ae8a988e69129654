#include "vexcor/system/TreeWatch.h"

#include <gtest/gtest.h>

#include "FontTestHome.h"

namespace fs = std::filesystem;
using vexcor::TreeWatch;

namespace {

class TreeWatchTest : public testing::Test {
protected:
    // The kernel queues an event before the call that causes it returns.
    bool HasChanged() { return mWatch.TakeChanges(); }
    void Watch() { mWatch.Watch({mFolder.string()}); }

    FontTestHome mHome;
    fs::path mFolder = mHome.GetLibrary();
    TreeWatch mWatch;
};

TEST_F(TreeWatchTest, AnUntouchedFolderHasNoChange)
{
    Watch();
    EXPECT_FALSE(HasChanged());
    EXPECT_EQ("", mWatch.GetProblem());
}

TEST_F(TreeWatchTest, SeesFilesCreatedWrittenRenamedAndRemoved)
{
    Watch();
    FontTestHome::WriteFile(mFolder / "a", "1");
    EXPECT_TRUE(HasChanged());
    EXPECT_FALSE(HasChanged());
    FontTestHome::WriteFile(mFolder / "a", "2");
    EXPECT_TRUE(HasChanged());
    fs::rename(mFolder / "a", mFolder / "b");
    EXPECT_TRUE(HasChanged());
    fs::remove(mFolder / "b");
    EXPECT_TRUE(HasChanged());
}

// As `touch -m` does, and programs that copy files with their times.
TEST_F(TreeWatchTest, SeesThatOnlyTheModificationTimeWasSet)
{
    FontTestHome::WriteFile(mFolder / "a", "1");
    Watch();
    fs::last_write_time(mFolder / "a", fs::last_write_time(mFolder / "a") - std::chrono::hours(1));
    EXPECT_TRUE(HasChanged());
}

TEST_F(TreeWatchTest, SeesChangesInSubfoldersOldAndNew)
{
    fs::create_directories(mFolder / "a/b");
    Watch();
    FontTestHome::WriteFile(mFolder / "a/b/file", "1");
    EXPECT_TRUE(HasChanged());
    fs::create_directories(mFolder / "c/d");
    EXPECT_TRUE(HasChanged());
    Watch();
    FontTestHome::WriteFile(mFolder / "c/d/file", "1");
    EXPECT_TRUE(HasChanged());
}

TEST_F(TreeWatchTest, AFolderThatIsNoLongerWatchedHasNoChange)
{
    Watch();
    mWatch.Watch({(mHome.GetPath() / "other").string()});
    (void)HasChanged();  // the end of a watch is an event as well
    FontTestHome::WriteFile(mFolder / "a", "1");
    EXPECT_FALSE(HasChanged());
}

TEST_F(TreeWatchTest, SeesThatAMissingFolderWasCreated)
{
    const fs::path later = mHome.GetPath() / "later";
    mWatch.Watch({later.string()});
    EXPECT_FALSE(mWatch.HasMissingFolderAppeared());
    fs::create_directory(later);
    EXPECT_TRUE(mWatch.HasMissingFolderAppeared());
}

TEST_F(TreeWatchTest, AFolderRemovedAndCreatedAgainIsWatchedAgain)
{
    Watch();
    fs::remove_all(mFolder);
    EXPECT_TRUE(HasChanged());
    Watch();
    fs::create_directory(mFolder);
    EXPECT_TRUE(mWatch.HasMissingFolderAppeared());
    Watch();
    FontTestHome::WriteFile(mFolder / "a", "1");
    EXPECT_TRUE(HasChanged());
}

}  // namespace
