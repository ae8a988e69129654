#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "CoreTestHome.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ActivationTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name : {"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"}) {
            FontTestHome::CopyFont(name, mHome.GetLibrary());
        }
    }
    void TearDown() override { EXPECT_EQ(0U, mCore.pTerminatePluginCoreInterface()); }

    // Starts a child process that starts PluginCore, activates the fonts and is killed.
    void ActivateInKilledProcess(const std::string& path, const std::string& fonts)
    {
        const pid_t child = fork();
        if (child == 0) {
            const bool worked = mCore.Start() && mCore.OpenAndActivate(path, fonts) == 0;
            if (worked) raise(SIGKILL);
            _exit(1);
        }
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    }

    FontTestHome mHome;
    Framework mCore;
};

TEST_F(ActivationTest, OpenReturnsInactiveLibraryFontsInOrderWithoutDuplicates)
{
    ASSERT_TRUE(mCore.Start());
    const std::string fonts =
        MakeFontList({"DejaVuSerif", "Nowhere", "DejaVuSans", "DejaVuSerif", "dejavuSans"});
    const std::string expected =
        "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSerif\"},"
        "{\"PostScriptName\":\"DejaVuSans\"}]}";
    EXPECT_EQ(expected, mCore.Open("/a.ai", fonts));
    EXPECT_EQ(expected, mCore.Open("/a.ai", "{\"DocumentFonts\":" + fonts + "}"));
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"Nowhere"})));
    EXPECT_EQ("", mCore.Open("/a.ai", "[]"));
}

TEST_F(ActivationTest, FontsAreActiveWhileTheDocumentIsOpen)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(ActivationTest, FontRemainsActiveAsLongAsOneOfTwoDocumentsHoldsIt)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})));
    EXPECT_EQ("", mCore.Open("/b.ai", MakeFontList({"DejaVuSerif"})));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/b.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, FontsActiveWithoutPluginCoreAreUnchanged)
{
    const auto installed = FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetUserFonts());
    FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans-Bold"})));
    int count = 0;
    EXPECT_EQ(
        0U, mCore.pActivateChosenFonts("/a.ai", MakeFontList({"DejaVuSans-Bold"}).c_str(), &count));
    EXPECT_EQ(0, count);
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_TRUE(fs::exists(installed));
}

TEST_F(ActivationTest, ReaderSeesAllOfAGroupOrNone)
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
        EXPECT_EQ(0U, mCore.OpenAndActivate("/a.ai", fonts));
        // Wait for the reader: one without a cache would miss files of a group that is removed now.
        for (const int before = lists; lists < before + 2;) std::this_thread::yield();
        EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    }
    done = true;
    reader.join();
    EXPECT_THAT(seen, Contains(3U));
    EXPECT_THAT(seen, testing::Each(testing::AnyOf(0U, 3U)));
}

TEST_F(ActivationTest, HeldFontIsAlwaysVisibleWhileOthersOfItsGroupAreRemoved)
{
    ASSERT_TRUE(mCore.Start());
    std::atomic<int> phase{0};  // odd while the font must be visible
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
        EXPECT_EQ(0U,
                  mCore.OpenAndActivate("/all.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})));
        EXPECT_EQ("", mCore.Open("/kept.ai", MakeFontList({"DejaVuSerif"})));
        ++phase;
        EXPECT_EQ(0U, mCore.pHandleCloseDocument("/all.ai", ""));
        for (const int seen = lists; lists < seen + 2;) std::this_thread::yield();
        ++phase;
        EXPECT_EQ(0U, mCore.pHandleCloseDocument("/kept.ai", ""));
    }
    done = true;
    reader.join();
    EXPECT_EQ(0, missed);
}

TEST_F(ActivationTest, StartRepairsWhatAKilledProcessLeft)
{
    ActivateInKilledProcess("/a.ai", MakeFontList({"DejaVuSans"}));
    ASSERT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    ASSERT_TRUE(mCore.Start());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(ActivationTest, StartRemovesLeftoversAndNothingElse)
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

TEST_F(ActivationTest, OpenRestoresAClearedFolder)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})));
    fs::remove_all(mHome.GetUserFonts() / "corvanta");
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(ActivationTest, HoldsOfAnotherProcessAreKept)
{
    int toChild[2] = {};
    int toParent[2] = {};
    ASSERT_EQ(0, pipe(toChild));
    ASSERT_EQ(0, pipe(toParent));
    const pid_t child = fork();
    char byte = 'x';
    if (child == 0) {
        const bool worked =
            mCore.Start() && mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})) == 0;
        (void)!write(toParent[1], &byte, 1);  // if it fails, the parent reads the end of the pipe
        (void)!read(toChild[0], &byte, 1);    // returns when the parent ends, at the latest
        _exit(worked && mCore.pTerminatePluginCoreInterface() == 0 ? 0 : 1);
    }
    ASSERT_EQ(1, read(toParent[0], &byte, 1));
    EXPECT_TRUE(mCore.Start());
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(1, write(toChild[1], &byte, 1));
    int status = -1;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    EXPECT_EQ(0, status);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    for (const int end : {toChild[0], toChild[1], toParent[0], toParent[1]}) close(end);
}

TEST_F(ActivationTest, DocumentWithoutAPathHoldsFontsUntilTheEnd)
{
    ASSERT_TRUE(mCore.Start());
    int count = 0;
    EXPECT_EQ(0U, mCore.pActivateChosenFonts("", MakeFontList({"DejaVuSans"}).c_str(), &count));
    EXPECT_EQ(1, count);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(0U, mCore.pTerminatePluginCoreInterface());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, DocumentWithoutAPathDoesNotHoldActiveFonts)
{
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})));
    int count = 0;
    EXPECT_EQ(0U, mCore.pActivateChosenFonts("", MakeFontList({"DejaVuSans"}).c_str(), &count));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, MissingFontIsReportedAndTheOthersAreActivated)
{
    ASSERT_TRUE(mCore.Start());
    fs::remove(mHome.GetLibrary() / "DejaVuSans.ttf");
    int count = 0;
    testing::internal::CaptureStderr();
    const unsigned int status = mCore.pActivateChosenFonts(
        "/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"}).c_str(), &count);
    EXPECT_EQ(plugincore::StatusCodes::kNotFound, status);
    EXPECT_EQ(
        "PluginCore: ActivateChosenFonts: no readable file of the font library has "
        "DejaVuSans\n",
        testing::internal::GetCapturedStderr());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(ActivationTest, AllNamesOfACollectionAreActivatedAndReleasedTogether)
{
    const auto first = FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetPath() / "elsewhere");
    const auto second = FontTestHome::CopyFont("DejaVuSerif-Bold", mHome.GetPath() / "elsewhere");
    FontTestHome::WriteFile(mHome.GetLibrary() / "both.ttc", MakeCollection(first, second));
    ASSERT_TRUE(mCore.Start());
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans-Bold"})));
    EXPECT_EQ("", mCore.Open("/b.ai", MakeFontList({"DejaVuSerif-Bold"})));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), Contains("DejaVuSerif-Bold"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/b.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivationTest, InstanceOfAVariableFontIsActivatedByTheNameInDocuments)
{
    const auto plain = mHome.GetLibrary() / "DejaVuSansMono.ttf";
    FontTestHome::WriteFile(mHome.GetLibrary() / "v.ttf", MakeVariableFont(plain, {"Heavy"}));
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSansMono-Heavy"})));
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSansMono-Heavy"})));
    EXPECT_EQ(3U, ListActivationFolder(mHome).size());  // digits, group, link
}

}  // namespace
