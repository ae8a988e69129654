#include "plugin-core/documents/Dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "FontTestHome.h"
#include "plugin-core/Core.h"

using plugincore::AskForFonts;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Ask(const std::string& input, std::string* question = nullptr)
{
    std::istringstream in(input);
    std::ostringstream out;
    auto chosen = AskForFonts({"A-Bold", "B", "C"}, in, out);
    if (question) *question = out.str();
    return chosen;
}

TEST(AskForFonts, ListsTheFontsByNumber)
{
    std::string question;
    EXPECT_THAT(Ask("y\n", &question), ElementsAre("A-Bold", "B", "C"));
    EXPECT_EQ(question,
              "The document uses fonts that aren't active:\n  1  A-Bold\n  2  B\n  3  C\n"
              "Activate them? (y, n, or numbers) ");
}

TEST(AskForFonts, TakesNoneForNoAndAtTheEndOfTheInput)
{
    EXPECT_THAT(Ask("n\n"), IsEmpty());
    EXPECT_THAT(Ask(""), IsEmpty());
    EXPECT_THAT(Ask("perhaps"), IsEmpty());
}

TEST(AskForFonts, TakesNumbersInTheOrderOfTheList)
{
    EXPECT_THAT(Ask("3 1\n"), ElementsAre("A-Bold", "C"));
    EXPECT_THAT(Ask(" 2,2 \n"), ElementsAre("B"));
}

TEST(AskForFonts, AsksAgainForAnyOtherAnswer)
{
    EXPECT_THAT(Ask("\n4\n0\n-1\n1x\n,\n2\n"), ElementsAre("B"));
}

class ResolveTest : public testing::Test {
protected:
    void SetUp() override { mBefore = std::cin.rdbuf(mInput.rdbuf()); }
    void TearDown() override { std::cin.rdbuf(mBefore); }

    const std::string mList = "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}";
    FontTestHome mHome;
    std::istringstream mInput;
    std::streambuf* mBefore = nullptr;
    plugincore::Core mCore;
};

TEST_F(ResolveTest, KeepsTheTextWithoutAskingByDefault)
{
    mInput.str("n\n");
    mCore.Start();
    EXPECT_EQ(mCore.Resolve(mList), mList);
    mCore.Stop();
}

TEST_F(ResolveTest, TheSettingStandsAboveTheTerminal)
{
    setenv("CORVANTA_INTERACTIVE", "1", 1);
    FontTestHome::WriteFile(mHome.GetPath() / "config/Corvanta/settings.json",
                            "{\"FontActivation\":\"1\"}");
    mInput.str("n\n");
    mCore.Start();
    EXPECT_EQ(mCore.Resolve(mList), mList);
    mCore.Stop();
}

TEST_F(ResolveTest, AsksOnceForBothLooksAtADocument)
{
    setenv("CORVANTA_INTERACTIVE", "1", 1);
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    mCore.Start();
    EXPECT_EQ(mCore.OpenDocument("/a.ai", ""), "");  // not there; the question is what counts
    mInput.str("n\ny\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(mCore.Resolve(mList), "");
    EXPECT_EQ(mCore.OpenDocument("/a.ai", mList), mList);
    EXPECT_EQ(mCore.Resolve(mList), "");
    EXPECT_EQ(mCore.OpenDocument("/a.ai", ""), "");
    EXPECT_EQ(mCore.Resolve(mList), mList);
    (void)testing::internal::GetCapturedStderr();  // the questions
    mCore.Stop();
}

}  // namespace
