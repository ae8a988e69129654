#include "IllustratorUtilities.h"
#include "UsageTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PlacedArt : public UsageTest {
protected:
    int Examine() { return ExamineCurrentDocForPlacedArt(paths); }
    static std::string Matched(int count)
    {
        return "sMatchingArt->GetMatchingArt(spec.type=kPlacedArt, numSpecs=1, numMatches=" +
               std::to_string(count) + ") returned 352321536";
    }
    static constexpr const char* kWarning =
        "WARNING: sPlacedSuite->GetPlacedFilePathFromArt() failed.";

    std::vector<std::string> paths;
};

TEST_F(PlacedArt, PathsComeInTheHostsOrder)
{
    AddDocument("/a.ai", {}, {"/Art/z.ai", "/Art/a.pdf"});
    EXPECT_EQ(Examine(), 0);
    EXPECT_THAT(paths, ElementsAre("/Art/z.ai", "/Art/a.pdf"));
    EXPECT_TRUE(HasTrace("Placed object found: '/Art/z.ai'"));
    EXPECT_TRUE(HasTrace("Placed object found: '/Art/a.pdf'"));
}

TEST_F(PlacedArt, AsksForPlacedArtOfAnyAttributeAndFreesTheArray)
{
    AddDocument("/a.ai", {"A"}, {"/Art/z.ai", "/Art/a.pdf"});
    EXPECT_EQ(Examine(), 0);
    const std::vector<std::string> calls = host.Calls();
    EXPECT_EQ(calls.front(), "AIMatchingArtSuite.GetMatchingArt({7, 0, 0}, 1)");
    EXPECT_EQ(calls.back(), "AIMdMemorySuite.MdMemoryDisposeHandle()");
    EXPECT_THAT(host.Calls("AIPlacedSuite"),
                ElementsAre("AIPlacedSuite.GetPlacedFilePathFromArt(placed 0)",
                            "AIPlacedSuite.GetPlacedFilePathFromArt(placed 1)"));
    EXPECT_EQ(host.LiveArtArrays(), 0U);
    EXPECT_EQ(host.LiveStrings(), 0U);
}

TEST_F(PlacedArt, MatchIsTracedWithTheStatusAndNotTheCode)
{
    AddDocument("/a.ai", {}, {"/Art/z.ai", "/Art/a.pdf"});
    EXPECT_EQ(Examine(), 0);
    EXPECT_EQ(CountTraces(Matched(2)), 1U);
    EXPECT_EQ(CountTraces(Matched(0)), 0U);
}

TEST_F(PlacedArt, ListOfTheCallerIsContinued)
{
    paths = {"/before.ai"};
    AddDocument("/a.ai", {}, {"/Art/z.ai"});
    EXPECT_EQ(Examine(), 0);
    EXPECT_THAT(paths, ElementsAre("/before.ai", "/Art/z.ai"));
}

TEST_F(PlacedArt, FilePlacedTwiceIsListedTwice)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai", "/Art/logo.ai"});
    EXPECT_EQ(Examine(), 0);
    EXPECT_THAT(paths, ElementsAre("/Art/logo.ai", "/Art/logo.ai"));
}

TEST_F(PlacedArt, EmptyPathIsListedLikeAnyOther)
{
    AddDocument("/a.ai", {}, {"", "/Art/logo.ai"});
    EXPECT_EQ(Examine(), 0);
    EXPECT_THAT(paths, ElementsAre("", "/Art/logo.ai"));
    EXPECT_TRUE(HasTrace("Placed object found: ''"));
    EXPECT_FALSE(HasTrace(kWarning));
}

TEST_F(PlacedArt, NullHandleIsUnknown)
{
    GiveNullForNoArt();
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(Examine(), kUnknownStatus);
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(host.Calls("AIMdMemorySuite"), IsEmpty());
}

TEST_F(PlacedArt, EmptyArrayIsSuccess)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(Examine(), 0);
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_EQ(host.CountCalls("AIMdMemorySuite.MdMemoryDisposeHandle"), 1U);
}

TEST_F(PlacedArt, FailedMatchIsUnknownAndTracedAsSuch)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 1, 4711);
    EXPECT_EQ(Examine(), kUnknownStatus);
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_THAT(host.Calls("AIMdMemorySuite"), IsEmpty());
}

TEST_F(PlacedArt, ArrayOfAFailedMatchIsNotWalked)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    static const auto sMatch = MatchingArtSuite()->GetMatchingArt;
    MatchingArtSuite()->GetMatchingArt = [](AIMatchingArtSpec* specs, int16_t numSpecs,
                                            AIArtHandle*** matches, int32_t* numMatches) {
        (void)sMatch(specs, numSpecs, matches, numMatches);  // its array goes out with a failure
        return AIErr(4711);
    };
    EXPECT_EQ(Examine(), kUnknownStatus);
    EXPECT_TRUE(HasTrace(Matched(1)));
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_THAT(host.Calls("AIMdMemorySuite"), IsEmpty());
    host.artArrays.clear();
}

TEST_F(PlacedArt, OneFailureMakesTheStatusUnknownForGood)
{
    AddDocument("/a.ai", {}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 1, 4711);
    EXPECT_EQ(Examine(), kUnknownStatus);
    EXPECT_THAT(paths, ElementsAre("/Art/second.ai"));
    EXPECT_EQ(CountTraces(kWarning), 1U);
    EXPECT_FALSE(HasTrace("Placed object found: '/Art/first.ai'"));
    EXPECT_EQ(host.CountCalls("AIMdMemorySuite.MdMemoryDisposeHandle"), 1U);
}

TEST_F(PlacedArt, EachFailureIsTraced)
{
    AddDocument("/a.ai", {}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 0, 4711);
    EXPECT_EQ(Examine(), kUnknownStatus);
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_EQ(CountTraces(kWarning), 2U);
}

TEST_F(PlacedArt, ArrayThatCannotBeFreedChangesNothing)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    host.FailCall("AIMdMemorySuite.MdMemoryDisposeHandle", 1, 4711);
    EXPECT_EQ(Examine(), 0);
    EXPECT_THAT(paths, ElementsAre("/Art/logo.ai"));
    host.artArrays.clear();
}

TEST_F(PlacedArt, TextThatTheHostCannotGiveIsTheWrappersError)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, 4711);
    EXPECT_THROW((void)Examine(), ai::Error);
    host.artArrays.clear();
}

}  // namespace
