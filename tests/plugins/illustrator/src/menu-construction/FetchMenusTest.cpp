#include "FileFormatHook.h"
#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FetchMenus : public RunningMenuTest {
protected:
    FetchMenus() { core->menus = R"({"id":"root"})"; }

    std::string text = "before";
};

TEST_F(FetchMenus, AsksForTheSizeAndThenForTheText)
{
    host.AddDocument("/a.ai");
    EXPECT_EQ(GetMenus(text), 0U);
    EXPECT_STREQ(text.c_str(), R"({"id":"root"})");
    EXPECT_THAT(core->calls,
                ElementsAre("GetMenus(\"/a.ai\", null, 0)", "GetMenus(\"/a.ai\", buffer, 14)"));
}

TEST_F(FetchMenus, TextHasTheSizeThatWasAnswered)
{
    EXPECT_EQ(GetMenus(text), 0U);
    EXPECT_EQ(text, core->menus + '\0');
}

TEST_F(FetchMenus, WithoutADocumentThePathIsEmpty)
{
    EXPECT_EQ(GetMenus(text), 0U);
    EXPECT_THAT(core->calls, ElementsAre("GetMenus(\"\", null, 0)", "GetMenus(\"\", buffer, 14)"));
}

TEST_F(FetchMenus, TextAndResultAreTraced)
{
    EXPECT_EQ(GetMenus(text), 0U);
    const std::vector<std::string> traces = TraceTexts();
    ASSERT_GE(traces.size(), 2U);
    EXPECT_EQ(traces[traces.size() - 2], R"(GetMenus result: {"id":"root"})");
    EXPECT_EQ(traces.back(), "GetMenus() returning 0");
    EXPECT_EQ(Traces().back().indentChange, -1);
}

TEST_F(FetchMenus, SecondAnswerIsTheResult)
{
    FailSecondGetMenus(0x15000000);
    EXPECT_EQ(GetMenus(text), 0x15000000U);
    EXPECT_EQ(text, std::string(14, '\0'));
    EXPECT_TRUE(HasTrace("GetMenus result: "));
    EXPECT_TRUE(HasTrace("GetMenus() returning 352321536"));
}

TEST_F(FetchMenus, SizeErrorTwiceIsTheResult)
{
    FailSecondGetMenus(0x0C000000);
    EXPECT_EQ(GetMenus(text), 0x0C000000U);
    EXPECT_EQ(core->calls.size(), 2U);
}

class FetchMenusFirstAnswer : public FetchMenus,
                              public ::testing::WithParamInterface<unsigned int> {};

TEST_P(FetchMenusFirstAnswer, GivesNoTextAndNoError)
{
    AnswerFirstGetMenus(GetParam());
    EXPECT_EQ(GetMenus(text), 0U);
    EXPECT_EQ(text, "");
    EXPECT_TRUE(HasTrace("GetMenus result: "));
    EXPECT_TRUE(HasTrace("GetMenus() returning 0"));
}

INSTANTIATE_TEST_SUITE_P(Answers, FetchMenusFirstAnswer,
                         ::testing::Values(0U, 0x01000000U, 0x07000000U, 0x0D000000U, 12U));

TEST_F(FetchMenus, EmptyTextIsATextOfOneByte)
{
    core->menus = "";
    EXPECT_EQ(GetMenus(text), 0U);
    EXPECT_EQ(text, std::string(1, '\0'));
    EXPECT_THAT(host.Faults(), IsEmpty());
}

}  // namespace
