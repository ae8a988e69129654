#include "console/ZshCompletion.h"

#include "CompletionFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class ZshCompletionTest : public CompletionFixture {
protected:
    void SetUp() override
    {
        if (!HasShell("zsh")) GTEST_SKIP() << "zsh is not installed";
        Write("_pen_case", console::WriteZshCompletion(*MakeApp()));
    }

    // What zsh offers for the last of the words.
    std::vector<std::string> Complete(const std::string& words) const
    {
        return RunInFolder("HOME=$PWD '" COMPLETE_IN_ZSH "' . 'pen-case " + words + "' | sort -u");
    }
};

TEST_F(ZshCompletionTest, CommandsAndOptions)
{
    EXPECT_THAT(Complete(""), UnorderedElementsAre("draw", "erase", "use", "why"));
    EXPECT_THAT(Complete("--"), UnorderedElementsAre("--help", "--version"));
    EXPECT_THAT(Complete("draw --i"), UnorderedElementsAre("--into", "--ink"));
}

TEST_F(ZshCompletionTest, FilesAndArguments)
{
    EXPECT_THAT(Complete("draw d"), UnorderedElementsAre("dog 1.ai", "drawings"));
    EXPECT_THAT(Complete("draw --into d"), ElementsAre("drawings"));
    EXPECT_THAT(Complete("draw --into=d"), ElementsAre("drawings"));
    EXPECT_THAT(Complete("draw --ink d"), IsEmpty());
    EXPECT_THAT(Complete("why --tone "), UnorderedElementsAre("light", "dark"));
}

TEST_F(ZshCompletionTest, NamesOfFontsAreNotEvaluated)
{
    EXPECT_THAT(Complete("why De"), UnorderedElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_THAT(Complete("why x"), UnorderedElementsAre("x$(touch evil)", "x`touch evil`"));
    EXPECT_THAT(Complete("use D"), UnorderedElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_THAT(Complete("use d"), UnorderedElementsAre("dog 1.ai", "drawings"));
}

TEST_F(ZshCompletionTest, AProgramWithoutCommands)
{
    Write("_pen_case", console::WriteZshCompletion(*MakePlainApp()));
    EXPECT_THAT(Complete("d"), UnorderedElementsAre("dog 1.ai", "drawings"));
    EXPECT_THAT(Complete("--"), UnorderedElementsAre("--help", "--into"));
}

}  // namespace
