#include "plugin-core/activation/ActivationFolder.h"

#include <gtest/gtest.h>

#include "FontTestHome.h"

namespace fs = std::filesystem;

namespace {

using plugincore::ActivationFolder;

// Many changes, of which several are within one step of a file system's clock. After each one, both
// folders above the group must have later times than after the change before.
TEST(ActivationFolderTest, EachChangeGivesTheFoldersLaterTimes)
{
    const FontTestHome home;
    const std::string file = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const ActivationFolder folder(home.GetUserFonts() / "corvanta");
    const fs::path parent = folder.GetPath() / "01";
    folder.Show(257, {{"0-c", file}});  // keeps the folder of group 1 when that is hidden
    fs::file_time_type ofRoot = fs::last_write_time(folder.GetPath());
    fs::file_time_type ofParent = fs::last_write_time(parent);
    const auto expectLater = [&](const char* change) {
        EXPECT_LT(ofRoot, fs::last_write_time(folder.GetPath())) << change;
        EXPECT_LT(ofParent, fs::last_write_time(parent)) << change;
        ofRoot = fs::last_write_time(folder.GetPath());
        ofParent = fs::last_write_time(parent);
    };
    for (int round = 0; round < 50; ++round) {
        folder.Show(1, {{"0-a", file}, {"1-b", file}});
        expectLater("Show");
        const fs::file_time_type ofGroup = fs::last_write_time(parent / "g1");
        folder.KeepOnly(1, {{"0-a", file}});
        expectLater("KeepOnly");
        EXPECT_LT(ofGroup, fs::last_write_time(parent / "g1"));
        folder.Hide(1);
        expectLater("Hide");
    }
}

// The clock was set back.
TEST(ActivationFolderTest, TouchGivesLaterTimesEvenIfTheFoldersHaveTimesOfTheFuture)
{
    const FontTestHome home;
    const ActivationFolder folder(home.GetUserFonts() / "corvanta");
    folder.Show(1, {{"0-a", FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary())}});
    const auto future = fs::file_time_type::clock::now() + std::chrono::hours(1);
    for (const char* const below : {"", "01", "01/g1"}) {
        fs::last_write_time(folder.GetPath() / below, future);
    }
    folder.Touch();
    for (const char* const below : {"", "01", "01/g1"}) {
        EXPECT_LT(future, fs::last_write_time(folder.GetPath() / below)) << below;
    }
}

}  // namespace
