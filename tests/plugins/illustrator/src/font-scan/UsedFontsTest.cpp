#include "DocumentHandlers.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;

namespace {

class UsedFonts : public MessageFixture {
protected:
    UsedFonts()
    {
        Start();
        ScriptedDocument& document = host.AddDocument("/a.ai");
        document.frames = {{{"A"}}, {{"B"}}};
        document.storyFonts = {"A", "HostSans-Regular", "A"};
    }
    ScriptedDocument& Document() { return host.documents.back(); }
    // Calls IterateUsedFonts and returns the int that it throws.
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

TEST_F(UsedFonts, AppendsEveryFontWithRepeatsAndDefaultFonts)
{
    json fonts;
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_EQ(R"([{"PostScriptName":"A"},{"PostScriptName":"HostSans-Regular"},)"
              R"({"PostScriptName":"A"}])",
              fonts.dump());
    EXPECT_EQ(2U, CountTraces("Name of used font: A"));
    EXPECT_EQ(1U, CountTraces("Name of used font: HostSans-Regular"));
}

TEST_F(UsedFonts, UsesOnlyTheFirstFrame)
{
    json fonts;
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_THAT(host.Calls("AITextFrameSuite"),
                ElementsAre("AITextFrameSuite.GetATETextFrame(frame 0)"));
    EXPECT_THAT(
        host.Calls("AIArtSetSuite"),
        ElementsAre("AIArtSetSuite.NewArtSet()", "AIArtSetSuite.MatchingArtSet({12, 0, 0}, 1)",
                    "AIArtSetSuite.CountArtSet()", "AIArtSetSuite.IndexArtSet(0)"));
}

TEST_F(UsedFonts, LeavesOneArtSetToTheHost)
{
    json fonts;
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_EQ(1U, host.LiveArtSets());
    EXPECT_EQ(0U, host.LiveReferences());
}

TEST_F(UsedFonts, SkipsNullFontsWithoutATrace)
{
    Document().storyFonts = {kNullFont, "B"};
    json fonts;
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_EQ(R"([{"PostScriptName":"B"}])", fonts.dump());
    EXPECT_EQ(1U, host.CountCalls("AIFontSuite.FontKeyFromFontRef"));
}

TEST_F(UsedFonts, LeavesTheValueNullIfAllFontsAreNull)
{
    Document().storyFonts = {kNullFont};
    json fonts;
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_TRUE(fonts.is_null());
}

TEST_F(UsedFonts, NameBufferIs8192Bytes)
{
    Document().storyFonts = {std::string(8192, 'x')};
    json fonts;
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_EQ(std::string(8191, 'x'), fonts.at(0).at("PostScriptName"));
    EXPECT_EQ(1U, host.CountCalls("AIFontSuite.GetPostScriptFontName(font " +
                                  std::string(8192, 'x') + ", 8192)"));
}

TEST_F(UsedFonts, ThrowsAnErrorWithoutFrames)
{
    Document().frames.clear();
    json fonts;
    EXPECT_EQ(kHostBadParameter, Thrown(fonts));
    EXPECT_TRUE(fonts.is_null());
    EXPECT_TRUE(HasTrace("ERROR:  throwing 1346458189."));
}

TEST_F(UsedFonts, ThrowsAnErrorWithoutFonts)
{
    Document().storyFonts.clear();
    json fonts;
    EXPECT_EQ(kHostBadParameter, Thrown(fonts));
    EXPECT_TRUE(fonts.is_null());
    EXPECT_EQ(0U, host.LiveReferences());
}

class UsedFontsHostCall : public UsedFonts, public ::testing::WithParamInterface<const char*> {};

TEST_P(UsedFontsHostCall, ThrowsTheCodeAsInt)
{
    host.FailCall(GetParam(), 1, 4711);
    json fonts;
    EXPECT_EQ(4711, Thrown(fonts));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_TRUE(fonts.is_null());
    EXPECT_EQ(0U, host.CountCalls("AIArtSetSuite.DisposeArtSet"));
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

TEST_P(UsedFontsTextEngine, ReturnsTheCode)
{
    host.FailCall(GetParam(), 1, 4711);
    json fonts;
    EXPECT_EQ(4711, IterateUsedFonts(fonts));
    EXPECT_TRUE(fonts.is_null());
    EXPECT_EQ(0U, host.LiveReferences());
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

TEST_F(UsedFonts, KeepsTheFontsAppendedBeforeAFailure)
{
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 2, 4711);
    json fonts;
    EXPECT_EQ(4711, Thrown(fonts));
    EXPECT_EQ(R"([{"PostScriptName":"A"}])", fonts.dump());
}

TEST_F(UsedFonts, AppendsToAnExistingArray)
{
    json fonts = json::array({"before"});
    EXPECT_EQ(0, IterateUsedFonts(fonts));
    EXPECT_EQ(4U, fonts.size());
}

TEST_F(UsedFonts, ArtSetFailureDoesNotDisposeOfTheSet)
{
    host.FailCall("AIArtSetSuite.MatchingArtSet", 1, 4711);
    AIArtSpec spec(12, 0, 0);
    AIArtSet set = nullptr;
    EXPECT_THROW((void)GetTextFrameArtSet(&spec, 1, set), int);
    EXPECT_NE(nullptr, set);
    EXPECT_EQ(1U, host.LiveArtSets());
}

TEST_F(UsedFonts, ArtSetHoldsTheMatches)
{
    AIArtSpec spec(12, 0, 0);
    AIArtSet set = nullptr;
    EXPECT_EQ(0, GetTextFrameArtSet(&spec, 1, set));
    int count = 0;
    EXPECT_EQ(0, gArtSetSuite->CountArtSet(set, &count));
    EXPECT_EQ(2, count);
}

TEST_F(UsedFonts, AiErrorInTheArtSetIsReturnedAndDisposesOfTheSet)
{
    host.OnCall("AIArtSetSuite.MatchingArtSet", [] { throw ai::Error(77); });
    AIArtSpec spec(12, 0, 0);
    AIArtSet set = nullptr;
    EXPECT_EQ(77, GetTextFrameArtSet(&spec, 1, set));
    EXPECT_EQ(nullptr, set);
    EXPECT_EQ(0U, host.LiveArtSets());
}

TEST_F(UsedFonts, ReturnsTheCodeOfAnAiError)
{
    host.OnCall("AIArtSetSuite.CountArtSet", [] { throw ai::Error(78); });
    json fonts;
    EXPECT_EQ(78, IterateUsedFonts(fonts));
}

}  // namespace
