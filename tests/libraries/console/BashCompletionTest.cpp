#include "console/BashCompletion.h"

#include "CompletionFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class BashCompletionTest : public CompletionFixture {
protected:
    BashCompletionTest() { Write("script", console::WriteBashCompletion(*MakeApp())); }

    // What bash offers for the last of the words, which follow the name of the program.
    std::vector<std::string> Complete(const std::string& words) const
    {
        Write("complete", ". ./script; COMP_WORDS=(pen-case " + words +
                              "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _pen_case pen-case; "
                              "((${#COMPREPLY[@]} == 0)) || printf '%s\\n' \"${COMPREPLY[@]}\"\n");
        return RunInFolder("bash ./complete");
    }
};

TEST_F(BashCompletionTest, CommandsAndOptionsOfTheProgram)
{
    EXPECT_THAT(Complete("''"),
                UnorderedElementsAre("draw", "erase", "use", "why", "--help", "--version"));
    EXPECT_THAT(Complete("dr"), ElementsAre("draw"));
}

TEST_F(BashCompletionTest, OptionsOfACommand)
{
    EXPECT_THAT(Complete("draw --i"), UnorderedElementsAre("--into", "--ink"));
    EXPECT_THAT(Complete("draw --f"), IsEmpty());
}

TEST_F(BashCompletionTest, FilesOfACommand)
{
    EXPECT_THAT(Complete("draw d"), UnorderedElementsAre("dog 1.ai", "drawings"));
}

TEST_F(BashCompletionTest, ArgumentsOfAnOption)
{
    EXPECT_THAT(Complete("draw --into d"), ElementsAre("drawings"));
    EXPECT_THAT(Complete("draw --into = d"), ElementsAre("drawings"));
    EXPECT_THAT(Complete("draw --into ="), ElementsAre("drawings"));
    EXPECT_THAT(Complete("draw --ink d"), IsEmpty());
    EXPECT_THAT(Complete("why --tone ''"), UnorderedElementsAre("light", "dark"));
}

TEST_F(BashCompletionTest, NamesOfFontsAreNotEvaluated)
{
    EXPECT_THAT(Complete("why De"), UnorderedElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_THAT(Complete("why x"), UnorderedElementsAre("x$(touch evil)", "x`touch evil`"));
    EXPECT_THAT(Complete("why i"), ElementsAre("it's"));
}

TEST_F(BashCompletionTest, FontsOrFiles)
{
    EXPECT_THAT(Complete("use d"), UnorderedElementsAre("dog 1.ai", "drawings"));
    EXPECT_THAT(Complete("use D"), UnorderedElementsAre("DejaVuSans", "DejaVuSerif"));
}

TEST_F(BashCompletionTest, NothingWithoutTheProgram)
{
    std::filesystem::remove(folder / "pen-case");
    EXPECT_THAT(Complete("why De"), IsEmpty());
}

TEST_F(BashCompletionTest, AProgramWithoutCommands)
{
    Write("script", console::WriteBashCompletion(*MakePlainApp()));
    EXPECT_THAT(Complete("d"), UnorderedElementsAre("dog 1.ai", "drawings"));
    EXPECT_THAT(Complete("--"), UnorderedElementsAre("--help", "--into"));
    EXPECT_THAT(Complete("--into d"), ElementsAre("drawings"));
}

}  // namespace
