#include "IllustratorUtilities.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class RunWalk : public MessageTest {
protected:
    RunWalk() { Start(); }

    void AddFrames(std::vector<std::vector<std::string>> frames)
    {
        ScriptedDocument& document = host.AddDocument("/a.ai");
        for (auto& runs : frames) document.frames.push_back({std::move(runs)});
    }
    int Walk() { return ExamineTextFramesInCurrentDocForFontUsage(fonts); }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const SFontRecord& record : fonts) {
            EXPECT_EQ(record.size(), 1U);
            names.push_back(record.at("PostScriptName"));
        }
        return names;
    }
    static std::string Matched(int count)
    {
        return "sMatchingArt->GetMatchingArt(spec.type=kTextFrameArt, numSpecs=1, numMatches=" +
               std::to_string(count) + ") returned 352321536";
    }

    FontList fonts;
};

TEST_F(RunWalk, FontsComeInOrderOfFirstAppearance)
{
    AddFrames({{"X", "B"}, {"A", "X"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("X", "B", "A"));
}

TEST_F(RunWalk, AsksForTextFramesOfAnyAttribute)
{
    AddFrames({{"A"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(host.Calls("AIMatchingArtSuite"),
                ElementsAre("AIMatchingArtSuite.GetMatchingArt({12, 0, 0}, 1)"));
    EXPECT_THAT(host.Calls("AIMdMemorySuite"),
                ElementsAre("AIMdMemorySuite.MdMemoryDisposeHandle()"));
    EXPECT_EQ(host.LiveArtArrays(), 0U);
}

TEST_F(RunWalk, TraceTellsTheStatusAndNotTheCode)
{
    AddFrames({{"A"}, {"A"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_TRUE(HasTrace(Matched(2)));
}

TEST_F(RunWalk, TwoFramesInOneFontAreOneRecord)
{
    AddFrames({{"A"}, {"A"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_EQ(CountTraces("AddNewFontNameFromTextArt() added 'A'"), 1U);
    EXPECT_EQ(CountTraces("AddNewFontNameFromTextArt() ignored duplicate font 'A'"), 1U);
}

TEST_F(RunWalk, NamesThatDifferInCaseAreTwoFonts)
{
    AddFrames({{"Font-A", "font-a"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("Font-A", "font-a"));
}

TEST_F(RunWalk, DocumentWithoutFramesIsUnknown)
{
    AddFrames({});
    EXPECT_EQ(Walk(), kUnknownStatus);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_EQ(host.LiveArtArrays(), 0U);
}

TEST_F(RunWalk, NullHandleIsUnknown)
{
    AddFrames({});
    host.GiveNull("AIMatchingArtSuite.GetMatchingArt");
    EXPECT_EQ(Walk(), kUnknownStatus);
    EXPECT_EQ(host.CountCalls("AIMdMemorySuite"), 0U);
}

TEST_F(RunWalk, FailedMatchIsUnknownAndTracedAsSuch)
{
    AddFrames({{"A"}});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 1, 4711);
    EXPECT_EQ(Walk(), kUnknownStatus);
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(RunWalk, DefaultFontsAreLeftOut)
{
    AddFrames({{"HostSans-Bold", "A"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_TRUE(HasTrace(
        "AddNewFontNameFromTextArt() ignoring 'HostSans-Bold' (Illustrator default font)."));
    EXPECT_TRUE(
        HasTrace("WARNING: for text frame 0, AddNewFontNameFromTextArt() returned 352321536"));
}

TEST_F(RunWalk, LastRunInADefaultFontMakesTheStatusUnknown)
{
    AddFrames({{"A"}, {"B", "HostSans-Regular"}});
    EXPECT_EQ(Walk(), kUnknownStatus);
    EXPECT_THAT(Names(), ElementsAre("A", "B"));
    EXPECT_TRUE(
        HasTrace("WARNING: for text frame 1, AddNewFontNameFromTextArt() returned 352321536"));
}

TEST_F(RunWalk, LaterRunInAnotherFontMakesItZeroAgain)
{
    AddFrames({{"HostSans-Regular"}, {"A"}});
    EXPECT_EQ(Walk(), 0);
}

TEST_F(RunWalk, FrameWithoutRunsLeavesTheZeroOfItsRange)
{
    AddFrames({{"HostSans-Regular"}, {}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(RunWalk, FrameWithoutARangeIsSkipped)
{
    AddFrames({{"A"}, {"B"}, {"C"}});
    host.FailCall("AITextFrameSuite.GetATETextRange", 2, 4711);
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("A", "C"));
    EXPECT_TRUE(
        HasTrace("ERROR: sTextFrameSuite->GetATETextRange(AIArtHandle index=1) returned 4711"));
}

TEST_F(RunWalk, LastFrameWithoutARangeGivesTheStatus)
{
    AddFrames({{"A"}, {"B"}});
    host.FailCall("AITextFrameSuite.GetATETextRange", 2, 4711);
    EXPECT_EQ(Walk(), 4711);
    EXPECT_THAT(Names(), ElementsAre("A"));
}

TEST_F(RunWalk, RunWhoseFontCannotBeReadIsSkipped)
{
    AddFrames({{"A", "B", "C"}});
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 2, 4711);
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("A", "C"));
    EXPECT_TRUE(HasTrace("ERROR:  GetTextRunFaceStyle() returned 4711"));
    EXPECT_TRUE(
        HasTrace("WARNING: for text frame 0, AddNewFontNameFromTextArt() returned 352321536"));
}

class RunWalkTextEngine : public RunWalk, public ::testing::WithParamInterface<const char*> {};

// A failure of the walk itself ends the frame, with the code as the status so far.
TEST_P(RunWalkTextEngine, FailureEndsTheFrameAndNotTheWalk)
{
    AddFrames({{"A", "B"}, {"C"}});
    host.FailCall(GetParam(), 1, 4711);
    EXPECT_EQ(Walk(), 0);
    EXPECT_EQ(Names().back(), "C");
    EXPECT_EQ(host.LiveReferences(), 0U);
}

TEST_P(RunWalkTextEngine, FailureInTheLastFrameIsTheStatus)
{
    AddFrames({{"A", "B"}});
    host.FailCall(GetParam(), 1, 4711);
    EXPECT_EQ(Walk(), 4711);
    EXPECT_EQ(host.LiveReferences(), 0U);
    EXPECT_EQ(host.LiveArtArrays(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Operations, RunWalkTextEngine,
                         ::testing::Values("ATE TextRange.GetTextRunsIterator",
                                           "ATE TextRunsIterator.IsNotDone",
                                           "ATE TextRunsIterator.Item",
                                           "ATE TextRunsIterator.Next"),
                         [](const auto& row) {
                             const std::string name = row.param;
                             return name.substr(name.rfind('.') + 1);
                         });

TEST_F(RunWalk, ListOfTheCallerIsContinued)
{
    AddFrames({{"A"}});
    EXPECT_EQ(Walk(), 0);
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("A"));
}

TEST_F(RunWalk, RunWhoseFontCannotBeToldIsSkippedAlone)
{
    AddFrames({{"A", "B"}});
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 1, 4711);
    EXPECT_EQ(Walk(), 0);
    EXPECT_THAT(Names(), ElementsAre("B"));
    EXPECT_EQ(host.LiveReferences(), 0U);
}

TEST_F(RunWalk, OtherExceptionsPassAndLeaveWhatWasFound)
{
    AddFrames({{"A", "B"}});
    host.OnCall("ATE TextRunsIterator.Next", [] { throw std::runtime_error("other"); });
    EXPECT_THROW((void)Walk(), std::runtime_error);
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_EQ(host.LiveReferences(), 0U);
    host.artArrays.clear();
}

}  // namespace
