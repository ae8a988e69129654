#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "CoreSession.h"
#include "plugin-core/library/LibraryWatch.h"

namespace fs = std::filesystem;

namespace {

int sRebuilds = 0;

class LibraryRebuildTest : public testing::Test {
protected:
    void SetUp() override
    {
        sRebuilds = 0;
        EXPECT_EQ(0U, mSession.core.pSetRebuildWorkgroupsMenuCallback([] { ++sRebuilds; }));
    }
    int Tick() const
    {
        sRebuilds = 0;
        EXPECT_EQ(0U, mSession.core.pIdleEvent());
        return sRebuilds;
    }

    CoreSession mSession;
    fs::path mRoot = mSession.home.GetLibrary();
};

TEST_F(LibraryRebuildTest, NoCallbackWithoutAChange)
{
    EXPECT_EQ(0, Tick());
    FontTestHome::CopyFont("DejaVuSans-Bold", mRoot);
    EXPECT_EQ(0, Tick());
}

TEST_F(LibraryRebuildTest, OneCallbackForEachAddedAndRemovedLibrary)
{
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(1, Tick());
    EXPECT_EQ(0, Tick());
    fs::rename(mRoot / "House", mRoot / "Home");
    EXPECT_EQ(1, Tick());
    fs::remove(mRoot / "Home");
    EXPECT_EQ(1, Tick());
    EXPECT_EQ(0, Tick());
}

TEST_F(LibraryRebuildTest, DetectsAllOfSeveralQuickChanges)
{
    for (int round = 0; round < 50; ++round) {
        fs::create_directory(mRoot / "House");
        EXPECT_EQ(1, Tick()) << round;
        fs::remove(mRoot / "House");
        EXPECT_EQ(1, Tick()) << round;
    }
}

TEST_F(LibraryRebuildTest, HiddenFoldersAndLinksAreNotLibraries)
{
    fs::create_directory(mRoot / ".hidden");
    fs::create_directory_symlink(mSession.home.GetPath(), mRoot / "link");
    EXPECT_EQ(0, Tick());
}

TEST_F(LibraryRebuildTest, RemovedRootFolderRemovesItsLibraries)
{
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(1, Tick());
    fs::rename(mRoot, mSession.home.GetPath() / "away");
    EXPECT_EQ(1, Tick());
    fs::rename(mSession.home.GetPath() / "away", mRoot);
    EXPECT_EQ(1, Tick());
}

TEST_F(LibraryRebuildTest, FailingCallbackIsReportedOnce)
{
    EXPECT_EQ(0U, mSession.core.pSetRebuildWorkgroupsMenuCallback(
                      [] { throw std::out_of_range("key 'id' not found"); }));
    fs::create_directory(mRoot / "House");
    EXPECT_EQ("PluginCore: IdleEvent: key 'id' not found\n",
              CaptureErrors([&] { EXPECT_NE(0U, mSession.core.pIdleEvent()); }));
    EXPECT_EQ("", CaptureErrors([&] { EXPECT_EQ(0U, mSession.core.pIdleEvent()); }));
}

TEST_F(LibraryRebuildTest, NoCallbackAfterTheEnd)
{
    EXPECT_EQ(0U, mSession.core.pTerminatePluginCoreInterface());
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(0, Tick());
}

TEST(LibraryWatchTest, ListsFoldersOnlyAfterAChange)
{
    const FontTestHome home;
    fs::create_directories(home.GetLibrary());
    fs::last_write_time(home.GetLibrary(),
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    int lists = 0;
    plugincore::LibraryWatch watch;
    watch.Begin({home.GetLibrary()}, [&lists] {
        ++lists;
        return std::vector<std::string>();
    });
    for (int tick = 0; tick < 100; ++tick) EXPECT_FALSE(watch.HasChanged());
    EXPECT_EQ(1, lists);
}

}  // namespace
