#include "IllustratorUtilities.h"
#include "UsageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PlacedArt : public UsageFixture {
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

TEST_F(PlacedArt, ListsPathsInTheHostsOrder)
{
    AddDocument("/a.ai", {}, {"/Art/z.ai", "/Art/a.pdf"});
    EXPECT_EQ(0, Examine());
    EXPECT_THAT(paths, ElementsAre("/Art/z.ai", "/Art/a.pdf"));
    EXPECT_TRUE(HasTrace("Placed object found: '/Art/z.ai'"));
    EXPECT_TRUE(HasTrace("Placed object found: '/Art/a.pdf'"));
}

TEST_F(PlacedArt, SearchesPlacedArtWithAnyAttributeAndFreesTheArray)
{
    AddDocument("/a.ai", {"A"}, {"/Art/z.ai", "/Art/a.pdf"});
    EXPECT_EQ(0, Examine());
    const std::vector<std::string> calls = host.Calls();
    EXPECT_EQ("AIMatchingArtSuite.GetMatchingArt({7, 0, 0}, 1)", calls.front());
    EXPECT_EQ("AIMdMemorySuite.MdMemoryDisposeHandle()", calls.back());
    EXPECT_THAT(host.Calls("AIPlacedSuite"),
                ElementsAre("AIPlacedSuite.GetPlacedFilePathFromArt(placed 0)",
                            "AIPlacedSuite.GetPlacedFilePathFromArt(placed 1)"));
    EXPECT_EQ(0U, host.LiveArtArrays());
    EXPECT_EQ(0U, host.LiveStrings());
}

TEST_F(PlacedArt, TracesTheStatusAndNotTheHostsCode)
{
    AddDocument("/a.ai", {}, {"/Art/z.ai", "/Art/a.pdf"});
    EXPECT_EQ(0, Examine());
    EXPECT_EQ(1U, CountTraces(Matched(2)));
    EXPECT_EQ(0U, CountTraces(Matched(0)));
}

TEST_F(PlacedArt, AppendsToTheCallersList)
{
    paths = {"/before.ai"};
    AddDocument("/a.ai", {}, {"/Art/z.ai"});
    EXPECT_EQ(0, Examine());
    EXPECT_THAT(paths, ElementsAre("/before.ai", "/Art/z.ai"));
}

TEST_F(PlacedArt, ListsAFileTwiceThatIsPlacedTwice)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai", "/Art/logo.ai"});
    EXPECT_EQ(0, Examine());
    EXPECT_THAT(paths, ElementsAre("/Art/logo.ai", "/Art/logo.ai"));
}

TEST_F(PlacedArt, ListsAnEmptyPath)
{
    AddDocument("/a.ai", {}, {"", "/Art/logo.ai"});
    EXPECT_EQ(0, Examine());
    EXPECT_THAT(paths, ElementsAre("", "/Art/logo.ai"));
    EXPECT_TRUE(HasTrace("Placed object found: ''"));
    EXPECT_FALSE(HasTrace(kWarning));
}

TEST_F(PlacedArt, ReturnsUnknownForANullArray)
{
    GiveNullForNoArt();
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(kUnknownStatus, Examine());
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(host.Calls("AIMdMemorySuite"), IsEmpty());
}

TEST_F(PlacedArt, SucceedsWithAnEmptyArray)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, Examine());
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_EQ(1U, host.CountCalls("AIMdMemorySuite.MdMemoryDisposeHandle"));
}

TEST_F(PlacedArt, ReturnsAndTracesUnknownIfTheSearchFails)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 1, 4711);
    EXPECT_EQ(kUnknownStatus, Examine());
    EXPECT_TRUE(HasTrace(Matched(0)));
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_THAT(host.Calls("AIMdMemorySuite"), IsEmpty());
}

TEST_F(PlacedArt, IgnoresTheArrayOfAFailedSearch)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    static const auto sMatch = MatchingArtSuite()->GetMatchingArt;
    MatchingArtSuite()->GetMatchingArt = [](AIMatchingArtSpec* specs, int16_t numSpecs,
                                            AIArtHandle*** matches, int32_t* numMatches) {
        (void)sMatch(specs, numSpecs, matches, numMatches);  // a failure that sets the array
        return AIErr(4711);
    };
    EXPECT_EQ(kUnknownStatus, Examine());
    EXPECT_TRUE(HasTrace(Matched(1)));
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_THAT(host.Calls("AIMdMemorySuite"), IsEmpty());
    host.artArrays.clear();
}

TEST_F(PlacedArt, ReturnsUnknownAfterOneFailure)
{
    AddDocument("/a.ai", {}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 1, 4711);
    EXPECT_EQ(kUnknownStatus, Examine());
    EXPECT_THAT(paths, ElementsAre("/Art/second.ai"));
    EXPECT_EQ(1U, CountTraces(kWarning));
    EXPECT_FALSE(HasTrace("Placed object found: '/Art/first.ai'"));
    EXPECT_EQ(1U, host.CountCalls("AIMdMemorySuite.MdMemoryDisposeHandle"));
}

TEST_F(PlacedArt, TracesEachFailure)
{
    AddDocument("/a.ai", {}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 0, 4711);
    EXPECT_EQ(kUnknownStatus, Examine());
    EXPECT_THAT(paths, IsEmpty());
    EXPECT_EQ(2U, CountTraces(kWarning));
}

TEST_F(PlacedArt, SucceedsEvenIfTheArrayCannotBeFreed)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    host.FailCall("AIMdMemorySuite.MdMemoryDisposeHandle", 1, 4711);
    EXPECT_EQ(0, Examine());
    EXPECT_THAT(paths, ElementsAre("/Art/logo.ai"));
    host.artArrays.clear();
}

TEST_F(PlacedArt, ThrowsAiErrorForAnUnreadablePath)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, 4711);
    EXPECT_THROW((void)Examine(), ai::Error);
    host.artArrays.clear();
}

}  // namespace
