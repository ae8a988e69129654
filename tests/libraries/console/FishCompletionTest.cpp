#include "console/FishCompletion.h"

#include "CompletionFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class FishCompletionTest : public CompletionFixture {
protected:
    void SetUp() override
    {
        if (!HasShell("fish")) GTEST_SKIP() << "fish is not installed";
        Write("script", console::WriteFishCompletion(*MakeApp()));
    }

    // What fish offers for the last of the words, without the descriptions.
    std::vector<std::string> Complete(const std::string& words) const
    {
        return RunInFolder(
            "HOME=$PWD fish --no-config -c 'source ./script; complete -C \"pen-case " + words +
            "\"' | cut -f 1");
    }
};

TEST_F(FishCompletionTest, CommandsAndOptions)
{
    EXPECT_THAT(Complete(""), UnorderedElementsAre("draw", "erase", "use", "why"));
    EXPECT_THAT(Complete("--"), UnorderedElementsAre("--help", "--version"));
    EXPECT_THAT(Complete("draw --i"), UnorderedElementsAre("--into", "--ink"));
}

TEST_F(FishCompletionTest, FilesAndArguments)
{
    EXPECT_THAT(Complete("draw d"), UnorderedElementsAre("dog 1.ai", "drawings/"));
    EXPECT_THAT(Complete("draw --into d"), ElementsAre("drawings/"));
    EXPECT_THAT(Complete("draw --ink d"), IsEmpty());
    EXPECT_THAT(Complete("why --tone "), UnorderedElementsAre("light", "dark"));
}

TEST_F(FishCompletionTest, NamesOfFontsAreNotEvaluated)
{
    EXPECT_THAT(Complete("why De"), UnorderedElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_THAT(Complete("why x"), UnorderedElementsAre("x$(touch evil)", "x`touch evil`"));
    EXPECT_THAT(Complete("use Deja"), UnorderedElementsAre("DejaVuSans", "DejaVuSerif"));
}

TEST_F(FishCompletionTest, AProgramWithoutCommands)
{
    Write("script", console::WriteFishCompletion(*MakePlainApp()));
    EXPECT_THAT(Complete("d"), UnorderedElementsAre("dog 1.ai", "drawings/"));
    EXPECT_THAT(Complete("--"), UnorderedElementsAre("--help", "--into"));
}

}  // namespace
