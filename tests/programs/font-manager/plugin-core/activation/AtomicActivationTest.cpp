#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "CoreTestHome.h"
#include "activation/SystemCallTrace.h"

namespace fs = std::filesystem;

namespace {

using testing::ElementsAre;
using Fonts = std::set<std::string>;

// What another process can see while PluginCore changes the user's fonts. PluginCore is stopped at
// each of its system calls, so no state is missed.
class AtomicActivationTest : public testing::Test {
protected:
    AtomicActivationTest()
    {
        for (const std::string& name : kAll) FontTestHome::CopyFont(name, mHome.GetLibrary());
    }

    // Runs `body` in a traced child process. Returns the different states of the user's fonts, in
    // order; the first is the one before.
    std::vector<Fonts> WatchEachSystemCall(const std::function<bool()>& body)
    {
        std::vector<Fonts> states = {ListVisible(mHome.GetUserFonts())};
        size_t stops = 0;
        EXPECT_EQ(0, TraceSystemCalls([&] { return body() ? 0 : 1; },
                                      [&] {
                                          ++stops;
                                          Fonts now = ListVisible(mHome.GetUserFonts());
                                          if (now != states.back()) states.push_back(now);
                                      }));
        // The links of a group alone are more calls than this.
        EXPECT_LT(2 * kAll.size(), stops);
        return states;
    }

    // The fonts below a folder in the way of fontconfig, which skips names with a leading dot.
    static Fonts ListVisible(const fs::path& folder)
    {
        Fonts fonts;
        std::error_code error;
        fs::directory_iterator entry(folder, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            const fs::path path = entry->path();
            if (path.filename().native()[0] == '.') continue;
            std::error_code gone;
            if (fs::is_directory(path, gone)) fonts.merge(ListVisible(path));
            if (!fs::is_regular_file(path, gone)) continue;
            fonts.insert(fs::canonical(path, gone).stem());
        }
        return fonts;
    }

    bool Activate(const char* path, const std::vector<std::string>& names) const
    {
        return mCore.OpenAndActivate(path, MakeFontList(names)) == 0;
    }
    bool Close(const char* path) const { return mCore.pHandleCloseDocument(path, "") == 0; }

    const std::vector<std::string> kAll = {"DejaVuSans", "DejaVuSansMono", "DejaVuSerif",
                                           "DejaVuSerif-Bold"};
    FontTestHome mHome;
    Framework mCore;
};

TEST_F(AtomicActivationTest, AGroupAppearsAndDisappearsAsAWhole)
{
    const Fonts all(kAll.begin(), kAll.end());
    EXPECT_THAT(WatchEachSystemCall(
                    [&] { return mCore.Start() && Activate("/a.ai", kAll) && Close("/a.ai"); }),
                ElementsAre(Fonts(), all, Fonts()));
}

TEST_F(AtomicActivationTest, AHeldFontRemainsWhileTheOthersOfItsGroupDisappearAtOnce)
{
    const Fonts all(kAll.begin(), kAll.end());
    EXPECT_THAT(WatchEachSystemCall([&] {
                    return mCore.Start() && Activate("/all.ai", kAll) &&
                           Activate("/kept.ai", {"DejaVuSerif"}) && Close("/all.ai") &&
                           Close("/kept.ai");
                }),
                ElementsAre(Fonts(), all, Fonts({"DejaVuSerif"}), Fonts()));
}

TEST_F(AtomicActivationTest, ASecondGroupDoesNotTouchTheFirst)
{
    EXPECT_THAT(
        WatchEachSystemCall([&] {
            return mCore.Start() && Activate("/a.ai", {"DejaVuSans", "DejaVuSerif"}) &&
                   Activate("/b.ai", {"DejaVuSansMono", "DejaVuSerif-Bold"}) && Close("/a.ai");
        }),
        ElementsAre(Fonts(), Fonts({"DejaVuSans", "DejaVuSerif"}), Fonts(kAll.begin(), kAll.end()),
                    Fonts({"DejaVuSansMono", "DejaVuSerif-Bold"})));
}

// The child ends without TerminatePluginCoreInterface, as if it were killed.
TEST_F(AtomicActivationTest, TheRepairAtTheNextStartRemovesAGroupAsAWhole)
{
    const Fonts all(kAll.begin(), kAll.end());
    EXPECT_THAT(WatchEachSystemCall([&] { return mCore.Start() && Activate("/a.ai", kAll); }),
                ElementsAre(Fonts(), all));
    EXPECT_THAT(WatchEachSystemCall([&] { return mCore.Start(); }), ElementsAre(all, Fonts()));
}

}  // namespace
