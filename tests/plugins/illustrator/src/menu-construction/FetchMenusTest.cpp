#include <new>

#include "FileFormatHook.h"
#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FetchMenus : public RunningMenuFixture {
protected:
    FetchMenus() { core->menus = R"({"id":"root"})"; }

    std::string text = "before";
};

TEST_F(FetchMenus, AsksForTheSizeAndThenForTheText)
{
    host.AddDocument("/a.ai");
    EXPECT_EQ(0U, GetMenus(text));
    EXPECT_STREQ(R"({"id":"root"})", text.c_str());
    EXPECT_THAT(core->calls,
                ElementsAre("GetMenus(\"/a.ai\", null, 0)", "GetMenus(\"/a.ai\", buffer, 14)"));
}

TEST_F(FetchMenus, TextHasTheSizeThatPluginCoreReturned)
{
    EXPECT_EQ(0U, GetMenus(text));
    EXPECT_EQ(core->menus + '\0', text);
}

TEST_F(FetchMenus, PassesAnEmptyPathWithoutADocument)
{
    EXPECT_EQ(0U, GetMenus(text));
    EXPECT_THAT(core->calls, ElementsAre("GetMenus(\"\", null, 0)", "GetMenus(\"\", buffer, 14)"));
}

TEST_F(FetchMenus, TracesTextAndResult)
{
    EXPECT_EQ(0U, GetMenus(text));
    const std::vector<std::string> traces = TraceTexts();
    ASSERT_GE(traces.size(), 2U);
    EXPECT_EQ(R"(GetMenus result: {"id":"root"})", traces[traces.size() - 2]);
    EXPECT_EQ("GetMenus() returning 0", traces.back());
    EXPECT_EQ(-1, Traces().back().indentChange);
}

TEST_F(FetchMenus, ReturnsTheStatusOfTheSecondCall)
{
    FailSecondGetMenus(CoreErrorCodes::kUnknownError);
    EXPECT_EQ(CoreErrorCodes::kUnknownError, GetMenus(text));
    EXPECT_EQ(std::string(14, '\0'), text);
    EXPECT_TRUE(HasTrace("GetMenus result: "));
    EXPECT_TRUE(HasTrace("GetMenus() returning 352321536"));
}

TEST_F(FetchMenus, ReturnsTheSizeErrorOfTheSecondCall)
{
    FailSecondGetMenus(CoreErrorCodes::kIndexOutOfRange);
    EXPECT_EQ(CoreErrorCodes::kIndexOutOfRange, GetMenus(text));
    EXPECT_EQ(2U, core->calls.size());
}

class FetchMenusFirstAnswer : public FetchMenus,
                              public ::testing::WithParamInterface<unsigned int> {};

TEST_P(FetchMenusFirstAnswer, ReturnsNoTextAndNoError)
{
    AnswerFirstGetMenus(GetParam());
    EXPECT_EQ(0U, GetMenus(text));
    EXPECT_EQ("", text);
    EXPECT_TRUE(HasTrace("GetMenus result: "));
    EXPECT_TRUE(HasTrace("GetMenus() returning 0"));
}

INSTANTIATE_TEST_SUITE_P(Answers, FetchMenusFirstAnswer,
                         ::testing::Values(0U, 0x01000000U, 0x07000000U, 0x0D000000U, 12U));

TEST_F(FetchMenus, FetchesAnEmptyTextAsOneByte)
{
    core->menus = "";
    EXPECT_EQ(0U, GetMenus(text));
    EXPECT_EQ(std::string(1, '\0'), text);
    EXPECT_THAT(host.Faults(), IsEmpty());
}

TEST_F(FetchMenus, HugeSizeIsAnAllocationThatFails)
{
    core.Loader().pfGetMenus = [](const char*, char* buffer, size_t* size) {
        EXPECT_EQ(nullptr, buffer);
        *size = size_t{1} << 40;
        return CoreErrorCodes::kIndexOutOfRange;
    };
    EXPECT_THROW((void)GetMenus(text), std::bad_alloc);
    // Smaller than the memory of the machine, perhaps, but no size of menus either.
    core.Loader().pfGetMenus = [](const char*, char* buffer, size_t* size) {
        EXPECT_EQ(nullptr, buffer);
        *size = (size_t{64} << 20) + 1;
        return CoreErrorCodes::kIndexOutOfRange;
    };
    EXPECT_THROW((void)GetMenus(text), std::bad_alloc);
}

}  // namespace
