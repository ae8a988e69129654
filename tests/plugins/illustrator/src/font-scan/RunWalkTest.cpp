#include "IllustratorUtilities.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class RunWalk : public MessageFixture {
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
            EXPECT_EQ(1U, record.size());
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

TEST_F(RunWalk, ListsFontsInOrderOfFirstAppearance)
{
    AddFrames({{"X", "B"}, {"A", "X"}});
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("X", "B", "A"));
}

TEST_F(RunWalk, SearchesTextFramesWithAnyAttribute)
{
    AddFrames({{"A"}});
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(host.Calls("AIMatchingArtSuite"),
                ElementsAre("AIMatchingArtSuite.GetMatchingArt({12, 0, 0}, 1)"));
    EXPECT_THAT(host.Calls("AIMdMemorySuite"),
                ElementsAre("AIMdMemorySuite.MdMemoryDisposeHandle()"));
    EXPECT_EQ(0U, host.LiveArtArrays());
}

TEST_F(RunWalk, TracesTheStatusAndNotTheHostsCode)
{
    AddFrames({{"A"}, {"A"}});
    EXPECT_EQ(0, Walk());
    EXPECT_TRUE(HasTrace(Matched(2)));
}

TEST_F(RunWalk, ListsAFontOfTwoFramesOnce)
{
    AddFrames({{"A"}, {"A"}});
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_EQ(1U, CountTraces("AddNewFontNameFromTextArt() added 'A'"));
    EXPECT_EQ(1U, CountTraces("AddNewFontNameFromTextArt() ignored duplicate font 'A'"));
}

TEST_F(RunWalk, KeepsWhatIsInTheListAlready)
{
    AddFrames({{"A", "B"}});
    fonts.emplace_back()["PostScriptName"] = "B";
    EXPECT_EQ(0, Walk());
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("B", "A"));
}

TEST_F(RunWalk, ListsNamesThatDifferInCase)
{
    AddFrames({{"Font-A", "font-a"}});
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("Font-A", "font-a"));
}

TEST_F(RunWalk, ReturnsUnknownWithoutFrames)
{
    AddFrames({});
    EXPECT_EQ(kUnknownStatus, Walk());
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_EQ(0U, host.LiveArtArrays());
}

TEST_F(RunWalk, ReturnsUnknownForANullArray)
{
    AddFrames({});
    host.GiveNull("AIMatchingArtSuite.GetMatchingArt");
    EXPECT_EQ(kUnknownStatus, Walk());
    EXPECT_EQ(0U, host.CountCalls("AIMdMemorySuite"));
}

TEST_F(RunWalk, ReturnsAndTracesUnknownIfTheSearchFails)
{
    AddFrames({{"A"}});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 1, 4711);
    EXPECT_EQ(kUnknownStatus, Walk());
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(RunWalk, SkipsDefaultFonts)
{
    AddFrames({{"HostSans-Bold", "A"}});
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_TRUE(HasTrace(
        "AddNewFontNameFromTextArt() ignoring 'HostSans-Bold' (Illustrator default font)."));
    EXPECT_TRUE(
        HasTrace("WARNING: for text frame 0, AddNewFontNameFromTextArt() returned 352321536"));
}

TEST_F(RunWalk, SkipsADefaultFontThatIsInTheListAlready)
{
    SFontRecord record;
    record["PostScriptName"] = "HostSans-Bold";
    fonts.push_back(record);
    AddFrames({{"A", "HostSans-Bold", "HostSans-Bold"}});
    EXPECT_EQ(kUnknownStatus, Walk());
    EXPECT_THAT(Names(), ElementsAre("HostSans-Bold", "A"));
    EXPECT_TRUE(HasTrace(
        "AddNewFontNameFromTextArt() ignoring 'HostSans-Bold' (Illustrator default font)."));
}

// The list grows, and with it the memory of the names that repeats are compared with.
TEST_F(RunWalk, FindsTheRepeatsOfManyFonts)
{
    std::vector<std::string> runs;
    for (int run = 0; run < 3000; ++run) runs.push_back("Font" + std::to_string(run % 1000));
    AddFrames({runs});
    EXPECT_EQ(0, Walk());
    EXPECT_EQ(std::vector<std::string>(runs.begin(), runs.begin() + 1000), Names());
}

TEST_F(RunWalk, ReturnsUnknownIfTheLastRunIsInADefaultFont)
{
    AddFrames({{"A"}, {"B", "HostSans-Regular"}});
    EXPECT_EQ(kUnknownStatus, Walk());
    EXPECT_THAT(Names(), ElementsAre("A", "B"));
    EXPECT_TRUE(
        HasTrace("WARNING: for text frame 1, AddNewFontNameFromTextArt() returned 352321536"));
}

TEST_F(RunWalk, ReturnsZeroIfALaterRunIsInAnotherFont)
{
    AddFrames({{"HostSans-Regular"}, {"A"}});
    EXPECT_EQ(0, Walk());
}

TEST_F(RunWalk, ReturnsZeroIfTheLastFrameHasNoRuns)
{
    AddFrames({{"HostSans-Regular"}, {}});
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(RunWalk, SkipsAFrameWithoutARange)
{
    AddFrames({{"A"}, {"B"}, {"C"}});
    host.FailCall("AITextFrameSuite.GetATETextRange", 2, 4711);
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("A", "C"));
    EXPECT_TRUE(
        HasTrace("ERROR: sTextFrameSuite->GetATETextRange(AIArtHandle index=1) returned 4711"));
}

TEST_F(RunWalk, ReturnsTheCodeOfALastFrameWithoutARange)
{
    AddFrames({{"A"}, {"B"}});
    host.FailCall("AITextFrameSuite.GetATETextRange", 2, 4711);
    EXPECT_EQ(4711, Walk());
    EXPECT_THAT(Names(), ElementsAre("A"));
}

TEST_F(RunWalk, TextEngineExceptionOfTheRangeEndsTheFrameButNotTheWalk)
{
    AddFrames({{"A"}, {"B"}, {"C"}});
    int calls = 0;
    host.OnCall("AITextFrameSuite.GetATETextRange", [&calls] {
        if (++calls == 2) throw ATE::Exception(4711);
    });
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("A", "C"));
    EXPECT_EQ(0U, CountTraces("ERROR: sTextFrameSuite->GetATETextRange(AIArtHandle index=1) "
                              "returned 4711"));
}

TEST_F(RunWalk, ReturnsTheCodeOfATextEngineExceptionOfTheLastRange)
{
    AddFrames({{"A"}, {"B"}});
    int calls = 0;
    host.OnCall("AITextFrameSuite.GetATETextRange", [&calls] {
        if (++calls == 2) throw ATE::Exception(4711);
    });
    EXPECT_EQ(4711, Walk());
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_EQ(0U, host.LiveArtArrays());
}

TEST_F(RunWalk, SkipsARunWhoseFontCannotBeRead)
{
    AddFrames({{"A", "B", "C"}});
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 2, 4711);
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("A", "C"));
    EXPECT_TRUE(HasTrace("ERROR:  GetTextRunFaceStyle() returned 4711"));
    EXPECT_TRUE(
        HasTrace("WARNING: for text frame 0, AddNewFontNameFromTextArt() returned 352321536"));
}

class RunWalkTextEngine : public RunWalk, public ::testing::WithParamInterface<const char*> {};

TEST_P(RunWalkTextEngine, FailureEndsTheFrameButNotTheWalk)
{
    AddFrames({{"A", "B"}, {"C"}});
    host.FailCall(GetParam(), 1, 4711);
    EXPECT_EQ(0, Walk());
    EXPECT_EQ("C", Names().back());
    EXPECT_EQ(0U, host.LiveReferences());
}

TEST_P(RunWalkTextEngine, ReturnsTheCodeOfAFailureInTheLastFrame)
{
    AddFrames({{"A", "B"}});
    host.FailCall(GetParam(), 1, 4711);
    EXPECT_EQ(4711, Walk());
    EXPECT_EQ(0U, host.LiveReferences());
    EXPECT_EQ(0U, host.LiveArtArrays());
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

TEST_F(RunWalk, AppendsToTheCallersList)
{
    AddFrames({{"A"}});
    EXPECT_EQ(0, Walk());
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("A"));
}

TEST_F(RunWalk, SkipsOnlyTheRunWhoseFontCannotBeRead)
{
    AddFrames({{"A", "B"}});
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 1, 4711);
    EXPECT_EQ(0, Walk());
    EXPECT_THAT(Names(), ElementsAre("B"));
    EXPECT_EQ(0U, host.LiveReferences());
}

TEST_F(RunWalk, OtherExceptionsPassThroughAndKeepTheFontsFound)
{
    AddFrames({{"A", "B"}});
    host.OnCall("ATE TextRunsIterator.Next", [] { throw std::runtime_error("other"); });
    EXPECT_THROW((void)Walk(), std::runtime_error);
    EXPECT_THAT(Names(), ElementsAre("A"));
    EXPECT_EQ(0U, host.LiveReferences());
    host.artArrays.clear();
}

}  // namespace
