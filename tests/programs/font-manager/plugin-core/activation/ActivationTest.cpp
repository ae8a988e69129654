#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "CoreTestHome.h"

namespace fs = std::filesystem;

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ActivationTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name : {"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"})
            FontTestHome::CopyFont(name, mHome.GetLibrary());
    }
    void TearDown() override { EXPECT_EQ(mCore.pTerminatePluginCoreInterface(), 0U); }

    // A child that starts PluginCore, activates the fonts for the path and is killed.
    void ActivateInKilledProcess(const std::string& path, const std::string& fonts)
    {
        const pid_t child = fork();
        if (child == 0) {
            const bool worked = mCore.Start() && mCore.OpenAndActivate(path, fonts) == 0;
            if (worked) raise(SIGKILL);
            _exit(1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    }

    FontTestHome mHome;
    Framework mCore;
};

TEST_F(ActivationTest, OpeningLeavesWhatIsInactiveAndInTheLibraryInOrderWithoutRepeats)
{
    ASSERT_TRUE(mCore.Start());
    const std::string fonts =
        MakeFontList({"DejaVuSerif", "Nowhere", "DejaVuSans", "DejaVuSerif", "dejavuSans"});
    const std::string expected =
        "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSerif\"},"
        "{\"PostScriptName\":\"DejaVuSans\"}]}";
    EXPECT_EQ(mCore.Open("/a.ai", fonts), expected);
    EXPECT_EQ(mCore.Open("/a.ai", "{\"DocumentFonts\":" + fonts + "}"), expected);
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"Nowhere"})), "");
    EXPECT_EQ(mCore.Open("/a.ai", "[]"), "");
}

TEST_F(ActivationTest, FontsAreActiveWhileTheDocumentIsOpen)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})), "");
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(ActivationTest, AFontStaysAsLongAsOneOfTwoDocumentsHasIt)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})), 0U);
    EXPECT_EQ(mCore.Open("/b.ai", MakeFontList({"DejaVuSerif"})), "");
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_EQ(mCore.pHandleCloseDocument("/b.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, FontsThatWereActiveBeforeAreNotTouched)
{
    const auto installed = FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetUserFonts());
    FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans-Bold"})), "");
    int count = 0;
    EXPECT_EQ(
        mCore.pActivateChosenFonts("/a.ai", MakeFontList({"DejaVuSans-Bold"}).c_str(), &count), 0U);
    EXPECT_EQ(count, 0);
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_TRUE(fs::exists(installed));
}

TEST_F(ActivationTest, AReaderSeesAllOfAGroupOrNone)
{
    ASSERT_TRUE(mCore.Start());
    const std::string fonts = MakeFontList({"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"});
    std::atomic<bool> done{false};
    std::atomic<int> lists{0};
    std::set<size_t> seen;
    std::thread reader([&] {
        for (; !done; ++lists) seen.insert(FontTestHome::ListOfOtherProcess().size());
    });
    for (int round = 0; round < 15; ++round) {
        EXPECT_EQ(mCore.OpenAndActivate("/a.ai", fonts), 0U);
        // A reader that is still at the files themselves loses those that it hasn't come to.
        for (const int before = lists; lists < before + 2;) std::this_thread::yield();
        EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    }
    done = true;
    reader.join();
    EXPECT_THAT(seen, Contains(3U));
    EXPECT_THAT(seen, testing::Each(testing::AnyOf(0U, 3U)));
}

TEST_F(ActivationTest, AHeldFontNeverVanishesWhileOthersOfItsGroupGo)
{
    ASSERT_TRUE(mCore.Start());
    std::atomic<int> phase{0};  // odd while the font has to be there
    std::atomic<int> lists{0};
    std::atomic<int> missed{0};
    std::atomic<bool> done{false};
    std::thread reader([&] {
        while (!done) {
            const int before = phase;
            const bool isThere = FontTestHome::ListOfOtherProcess().count("DejaVuSerif") != 0;
            if (before % 2 == 1 && before == phase && !isThere) ++missed;
            ++lists;
        }
    });
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(mCore.OpenAndActivate("/all.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})),
                  0U);
        EXPECT_EQ(mCore.Open("/kept.ai", MakeFontList({"DejaVuSerif"})), "");
        ++phase;
        EXPECT_EQ(mCore.pHandleCloseDocument("/all.ai", ""), 0U);
        for (const int seen = lists; lists < seen + 2;) std::this_thread::yield();
        ++phase;
        EXPECT_EQ(mCore.pHandleCloseDocument("/kept.ai", ""), 0U);
    }
    done = true;
    reader.join();
    EXPECT_EQ(missed, 0);
}

TEST_F(ActivationTest, TheNextStartRepairsWhatAKilledProcessLeft)
{
    ActivateInKilledProcess("/a.ai", MakeFontList({"DejaVuSans"}));
    ASSERT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    ASSERT_TRUE(mCore.Start());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(ActivationTest, TheNextStartRemovesLeftoversAndNothingElse)
{
    const fs::path folder = mHome.GetUserFonts() / "corvanta";
    FontTestHome::CopyFont("DejaVuSans-Bold", folder / "0a/.g10.new");
    FontTestHome::CopyFont("DejaVuSans-Bold", folder / "0b/.g11.old");
    FontTestHome::CopyFont("DejaVuSans-Bold", folder / "0c/g12");
    const auto foreign = FontTestHome::CopyFont("DejaVuSerif-Bold", folder / "mine");
    ASSERT_TRUE(mCore.Start());
    EXPECT_FALSE(fs::exists(folder / "0a/.g10.new"));
    EXPECT_FALSE(fs::exists(folder / "0b/.g11.old"));
    EXPECT_FALSE(fs::exists(folder / "0c/g12"));
    EXPECT_TRUE(fs::exists(foreign));
}

TEST_F(ActivationTest, AFolderThatWasClearedIsFilledAgain)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})), 0U);
    fs::remove_all(mHome.GetUserFonts() / "corvanta");
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})), "");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(ActivationTest, AnotherProcessKeepsItsOwnHolds)
{
    int toChild[2] = {};
    int toParent[2] = {};
    ASSERT_EQ(pipe(toChild), 0);
    ASSERT_EQ(pipe(toParent), 0);
    const pid_t child = fork();
    char byte = 'x';
    if (child == 0) {
        const bool worked =
            mCore.Start() && mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})) == 0;
        (void)!write(toParent[1], &byte, 1);  // the parent sees the end of the pipe otherwise
        (void)!read(toChild[0], &byte, 1);    // ends with the parent at the latest
        _exit(worked && mCore.pTerminatePluginCoreInterface() == 0 ? 0 : 1);
    }
    ASSERT_EQ(read(toParent[0], &byte, 1), 1);
    EXPECT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})), "");
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(write(toChild[1], &byte, 1), 1);
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    for (const int end : {toChild[0], toChild[1], toParent[0], toParent[1]}) close(end);
}

TEST_F(ActivationTest, ANamelessDocumentActivatesUntilTheEnd)
{
    ASSERT_TRUE(mCore.Start());
    int count = 0;
    EXPECT_EQ(mCore.pActivateChosenFonts("", MakeFontList({"DejaVuSans"}).c_str(), &count), 0U);
    EXPECT_EQ(count, 1);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(mCore.pTerminatePluginCoreInterface(), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, ANamelessDocumentDoesNotKeepWhatAnotherHolds)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})), 0U);
    int count = 0;
    EXPECT_EQ(mCore.pActivateChosenFonts("", MakeFontList({"DejaVuSans"}).c_str(), &count), 0U);
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, AFontThatIsGoneIsToldAndTheOthersAreActivated)
{
    ASSERT_TRUE(mCore.Start());
    fs::remove(mHome.GetLibrary() / "DejaVuSans.ttf");
    int count = 0;
    testing::internal::CaptureStderr();
    const unsigned int status = mCore.pActivateChosenFonts(
        "/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"}).c_str(), &count);
    EXPECT_EQ(status, 0x07000000U);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "PluginCore: ActivateChosenFonts: no readable file of the font library has "
              "DejaVuSans\n");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(ActivationTest, AllNamesOfACollectionComeAndGoTogether)
{
    const auto first = FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetPath() / "elsewhere");
    const auto second = FontTestHome::CopyFont("DejaVuSerif-Bold", mHome.GetPath() / "elsewhere");
    FontTestHome::WriteFile(mHome.GetLibrary() / "both.ttc", MakeCollection(first, second));
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans-Bold"})), 0U);
    EXPECT_EQ(mCore.Open("/b.ai", MakeFontList({"DejaVuSerif-Bold"})), "");
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), Contains("DejaVuSerif-Bold"));
    EXPECT_EQ(mCore.pHandleCloseDocument("/b.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, AnInstanceOfAVariableFontIsActivatedByTheNameThatDocumentsWrite)
{
    const auto plain = mHome.GetLibrary() / "DejaVuSansMono.ttf";
    FontTestHome::WriteFile(mHome.GetLibrary() / "v.ttf", MakeVariableFont(plain, {"Heavy"}));
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSansMono-Heavy"})), 0U);
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSansMono-Heavy"})), "");
    EXPECT_EQ(ListActivationFolder(mHome).size(), 3U);  // digits, group, link
}

}  // namespace
