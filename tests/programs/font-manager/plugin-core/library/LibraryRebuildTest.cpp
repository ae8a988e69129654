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
        EXPECT_EQ(mSession.core.pSetRebuildWorkgroupsMenuCallback([] { ++sRebuilds; }), 0U);
    }
    int Tick() const
    {
        sRebuilds = 0;
        EXPECT_EQ(mSession.core.pIdleEvent(), 0U);
        return sRebuilds;
    }

    CoreSession mSession;
    fs::path mRoot = mSession.home.GetLibrary();
};

TEST_F(LibraryRebuildTest, NothingNewAsksForNothing)
{
    EXPECT_EQ(Tick(), 0);
    FontTestHome::CopyFont("DejaVuSans-Bold", mRoot);
    EXPECT_EQ(Tick(), 0);
}

TEST_F(LibraryRebuildTest, ALibraryThatComesAndGoesAsksOnceEach)
{
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(Tick(), 1);
    EXPECT_EQ(Tick(), 0);
    fs::rename(mRoot / "House", mRoot / "Home");
    EXPECT_EQ(Tick(), 1);
    fs::remove(mRoot / "Home");
    EXPECT_EQ(Tick(), 1);
    EXPECT_EQ(Tick(), 0);
}

TEST_F(LibraryRebuildTest, ChangesInOneMomentAreAllSeen)
{
    for (int round = 0; round < 50; ++round) {
        fs::create_directory(mRoot / "House");
        EXPECT_EQ(Tick(), 1) << round;
        fs::remove(mRoot / "House");
        EXPECT_EQ(Tick(), 1) << round;
    }
}

TEST_F(LibraryRebuildTest, HiddenFoldersAndLinksAreNoLibraries)
{
    fs::create_directory(mRoot / ".hidden");
    fs::create_directory_symlink(mSession.home.GetPath(), mRoot / "link");
    EXPECT_EQ(Tick(), 0);
}

TEST_F(LibraryRebuildTest, ARootFolderThatGoesTakesItsLibrariesAlong)
{
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(Tick(), 1);
    fs::rename(mRoot, mSession.home.GetPath() / "away");
    EXPECT_EQ(Tick(), 1);
    fs::rename(mSession.home.GetPath() / "away", mRoot);
    EXPECT_EQ(Tick(), 1);
}

TEST_F(LibraryRebuildTest, AFailingRebuildIsToldOnce)
{
    EXPECT_EQ(mSession.core.pSetRebuildWorkgroupsMenuCallback(
                  [] { throw std::out_of_range("key 'id' not found"); }),
              0U);
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(CaptureErrors([&] { EXPECT_NE(mSession.core.pIdleEvent(), 0U); }),
              "PluginCore: IdleEvent: key 'id' not found\n");
    EXPECT_EQ(CaptureErrors([&] { EXPECT_EQ(mSession.core.pIdleEvent(), 0U); }), "");
}

TEST_F(LibraryRebuildTest, AfterTheEndNothingIsAskedFor)
{
    EXPECT_EQ(mSession.core.pTerminatePluginCoreInterface(), 0U);
    fs::create_directory(mRoot / "House");
    EXPECT_EQ(Tick(), 0);
}

TEST(LibraryWatchTest, FoldersAreListedOnlyWhenOneHasChanged)
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
    EXPECT_EQ(lists, 1);
}

}  // namespace
