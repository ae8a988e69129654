#include "plugin-core/documents/Dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "CoreTestHome.h"

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

TEST(AskForFonts, ListsTheFontsWithNumbers)
{
    std::string question;
    EXPECT_THAT(Ask("y\n", &question), ElementsAre("A-Bold", "B", "C"));
    EXPECT_EQ(
        "The document uses fonts that aren't active:\n  1  A-Bold\n  2  B\n  3  C\n"
        "Activate them? (y, n, or numbers) ",
        question);
}

TEST(AskForFonts, ReturnsNoneForNoAndAtTheEndOfTheInput)
{
    EXPECT_THAT(Ask("n\n"), IsEmpty());
    EXPECT_THAT(Ask(""), IsEmpty());
    EXPECT_THAT(Ask("perhaps"), IsEmpty());
}

TEST(AskForFonts, ReturnsNumbersInTheOrderOfTheList)
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
    void TearDown() override
    {
        std::cin.rdbuf(mBefore);
        EXPECT_EQ(0U, mCore.pTerminatePluginCoreInterface());
    }

    // Returns what InvokeResolveDialog leaves of the list.
    std::string Resolve() const
    {
        std::string buffer = mList;
        buffer.resize(4096, '\0');
        size_t size = buffer.size();
        EXPECT_EQ(0U, mCore.pInvokeResolveDialog(buffer.data(), &size));
        return buffer.c_str();
    }

    const std::string mList = "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}";
    FontTestHome mHome;
    std::istringstream mInput;
    std::streambuf* mBefore = nullptr;
    Framework mCore;
};

TEST_F(ResolveTest, ReturnsTheTextWithoutAskingByDefault)
{
    mInput.str("n\n");
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mList, Resolve());
}

TEST_F(ResolveTest, SettingOverridesTheTerminal)
{
    setenv("CORVANTA_INTERACTIVE", "1", 1);
    FontTestHome::WriteFile(mHome.GetPath() / "config/Corvanta/settings.json",
                            "{\"FontActivation\":\"1\"}");
    mInput.str("n\n");
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mList, Resolve());
}

TEST_F(ResolveTest, AsksOnceForBothOpensOfADocument)
{
    setenv("CORVANTA_INTERACTIVE", "1", 1);
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ("", mCore.Open("/a.ai", ""));  // there is no such file; that begins the opening
    mInput.str("n\ny\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ("", Resolve());
    EXPECT_EQ(mList, mCore.Open("/a.ai", mList));
    EXPECT_EQ("", Resolve());
    EXPECT_EQ("", mCore.Open("/a.ai", ""));
    EXPECT_EQ(mList, Resolve());
    (void)testing::internal::GetCapturedStderr();  // the questions
}

}  // namespace
