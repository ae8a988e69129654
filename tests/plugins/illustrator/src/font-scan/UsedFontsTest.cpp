#include "DocumentHandlers.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;

namespace {

class UsedFonts : public MessageTest {
protected:
    UsedFonts()
    {
        Start();
        ScriptedDocument& document = host.AddDocument("/a.ai");
        document.frames = {{{"A"}}, {{"B"}}};
        document.storyFonts = {"A", "HostSans-Regular", "A"};
    }
    ScriptedDocument& Document() { return host.documents.back(); }
    // The int that the scan throws.
    int Thrown(json& fonts)
    {
        try {
            (void)IterateUsedFonts(fonts);
        } catch (int code) {
            return code;
        }
        ADD_FAILURE() << "nothing was thrown";
        return 0;
    }
};

TEST_F(UsedFonts, EveryFontIsAppendedRepeatsAndDefaultsIncluded)
{
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_EQ(fonts.dump(), R"([{"PostScriptName":"A"},{"PostScriptName":"HostSans-Regular"},)"
                            R"({"PostScriptName":"A"}])");
    EXPECT_EQ(CountTraces("Name of used font: A"), 2U);
    EXPECT_EQ(CountTraces("Name of used font: HostSans-Regular"), 1U);
}

TEST_F(UsedFonts, EntersThroughTheFirstFrameAlone)
{
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_THAT(host.Calls("AITextFrameSuite"),
                ElementsAre("AITextFrameSuite.GetATETextFrame(frame 0)"));
    EXPECT_THAT(
        host.Calls("AIArtSetSuite"),
        ElementsAre("AIArtSetSuite.NewArtSet()", "AIArtSetSuite.MatchingArtSet({12, 0, 0}, 1)",
                    "AIArtSetSuite.CountArtSet()", "AIArtSetSuite.IndexArtSet(0)"));
}

TEST_F(UsedFonts, OneArtSetStaysWithTheHost)
{
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_EQ(host.LiveArtSets(), 1U);
    EXPECT_EQ(host.LiveReferences(), 0U);
}

TEST_F(UsedFonts, NullFontsAreSkippedWithoutATrace)
{
    Document().storyFonts = {kNullFont, "B"};
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_EQ(fonts.dump(), R"([{"PostScriptName":"B"}])");
    EXPECT_EQ(host.CountCalls("AIFontSuite.FontKeyFromFontRef"), 1U);
}

TEST_F(UsedFonts, NullFontsAloneLeaveTheValueNull)
{
    Document().storyFonts = {kNullFont};
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_TRUE(fonts.is_null());
}

TEST_F(UsedFonts, NameBufferIs8192Bytes)
{
    Document().storyFonts = {std::string(8192, 'x')};
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_EQ(fonts.at(0).at("PostScriptName"), std::string(8191, 'x'));
    EXPECT_EQ(host.CountCalls("AIFontSuite.GetPostScriptFontName(font " + std::string(8192, 'x') +
                              ", 8192)"),
              1U);
}

TEST_F(UsedFonts, NoFramesAreAThrownParameterError)
{
    Document().frames.clear();
    json fonts;
    EXPECT_EQ(Thrown(fonts), kParameterError);
    EXPECT_TRUE(fonts.is_null());
    EXPECT_TRUE(HasTrace("ERROR:  throwing 1346458189."));
}

TEST_F(UsedFonts, NoFontsAreAThrownParameterError)
{
    Document().storyFonts.clear();
    json fonts;
    EXPECT_EQ(Thrown(fonts), kParameterError);
    EXPECT_TRUE(fonts.is_null());
    EXPECT_EQ(host.LiveReferences(), 0U);
}

class UsedFontsHostCall : public UsedFonts, public ::testing::WithParamInterface<const char*> {};

TEST_P(UsedFontsHostCall, FailureIsThrownAsInt)
{
    host.FailCall(GetParam(), 1, 4711);
    json fonts;
    EXPECT_EQ(Thrown(fonts), 4711);
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_TRUE(fonts.is_null());
    EXPECT_EQ(host.CountCalls("AIArtSetSuite.DisposeArtSet"), 0U);
}

INSTANTIATE_TEST_SUITE_P(Operations, UsedFontsHostCall,
                         ::testing::Values("AIArtSetSuite.NewArtSet",
                                           "AIArtSetSuite.MatchingArtSet",
                                           "AIArtSetSuite.CountArtSet", "AIArtSetSuite.IndexArtSet",
                                           "AITextFrameSuite.GetATETextFrame",
                                           "AIFontSuite.FontKeyFromFontRef",
                                           "AIFontSuite.GetPostScriptFontName"),
                         [](const auto& row) {
                             const std::string name = row.param;
                             return name.substr(name.rfind('.') + 1);
                         });

class UsedFontsTextEngine : public UsedFonts, public ::testing::WithParamInterface<const char*> {};

TEST_P(UsedFontsTextEngine, FailureIsTheResult)
{
    host.FailCall(GetParam(), 1, 4711);
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 4711);
    EXPECT_TRUE(fonts.is_null());
    EXPECT_EQ(host.LiveReferences(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Operations, UsedFontsTextEngine,
                         ::testing::Values("ATE TextFrame.GetStory", "ATE Story.GetStories",
                                           "ATE Stories.GetTextRanges",
                                           "ATE TextRanges.GetCharInspector",
                                           "ATE CharInspector.GetFont", "ATE ArrayFontRef.GetSize",
                                           "ATE ArrayFontRef.Item"),
                         [](const auto& row) {
                             std::string name = std::string(row.param).substr(4);
                             name.erase(name.find('.'), 1);
                             return name;
                         });

TEST_F(UsedFonts, FailureMidwayKeepsWhatWasAppended)
{
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 2, 4711);
    json fonts;
    EXPECT_EQ(Thrown(fonts), 4711);
    EXPECT_EQ(fonts.dump(), R"([{"PostScriptName":"A"}])");
}

TEST_F(UsedFonts, SecondCallAppends)
{
    json fonts = json::array({"before"});
    EXPECT_EQ(IterateUsedFonts(fonts), 0);
    EXPECT_EQ(fonts.size(), 4U);
}

TEST_F(UsedFonts, ArtSetFailureLeavesTheSetUndisposed)
{
    host.FailCall("AIArtSetSuite.MatchingArtSet", 1, 4711);
    AIArtSpec spec(12, 0, 0);
    AIArtSet set = nullptr;
    EXPECT_THROW((void)GetTextFrameArtSet(&spec, 1, set), int);
    EXPECT_NE(set, nullptr);
    EXPECT_EQ(host.LiveArtSets(), 1U);
}

TEST_F(UsedFonts, ArtSetHoldsTheMatches)
{
    AIArtSpec spec(12, 0, 0);
    AIArtSet set = nullptr;
    EXPECT_EQ(GetTextFrameArtSet(&spec, 1, set), 0);
    int count = 0;
    EXPECT_EQ(gArtSetSuite->CountArtSet(set, &count), 0);
    EXPECT_EQ(count, 2);
}

TEST_F(UsedFonts, StringFailureInTheArtSetGivesItsCodeAndDisposesOfTheSet)
{
    host.OnCall("AIArtSetSuite.MatchingArtSet", [] { throw ai::Error(77); });
    AIArtSpec spec(12, 0, 0);
    AIArtSet set = nullptr;
    EXPECT_EQ(GetTextFrameArtSet(&spec, 1, set), 77);
    EXPECT_EQ(set, nullptr);
    EXPECT_EQ(host.LiveArtSets(), 0U);
}

TEST_F(UsedFonts, StringFailureInTheScanIsItsResult)
{
    host.OnCall("AIArtSetSuite.CountArtSet", [] { throw ai::Error(78); });
    json fonts;
    EXPECT_EQ(IterateUsedFonts(fonts), 78);
}

}  // namespace
