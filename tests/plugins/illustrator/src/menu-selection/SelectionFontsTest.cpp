#include <stdexcept>

#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

const char* const kNoFonts = "No fonts found in document.";

// Which fonts are passed to PluginCore with a command.
class SelectionFonts : public RunningMenuFixture {
protected:
    SelectionFonts()
    {
        EXPECT_EQ(0U, Add("1", "One", "One"));
        ScriptedDocument& document = host.AddDocument("/a.ai");
        document.frames = {{{"A"}}};
        document.storyFonts = {"A", "HostSans-Regular", "A"};
        core->documentID = "id-1";
        Forget();
    }
    ScriptedDocument& Document() { return host.documents.back(); }
    void Go() { EXPECT_EQ(0, SendGo(Item("One").handle)); }
    // The fonts passed with the command, in quotes.
    std::string Fonts()
    {
        const std::string beginning = "HandleMenuSelection(\"id-1\", \"\", \"1\", ";
        const std::string call = LastSelection();
        EXPECT_EQ(0, call.compare(0, beginning.size(), beginning)) << call;
        if (call.size() <= beginning.size()) return call;
        return call.substr(beginning.size(), call.size() - beginning.size() - 1);
    }
};

TEST_F(SelectionFonts, UpdatesTheUsageBeforeTheCommand)
{
    Document().placedPaths = {"/logo.ai"};
    Go();
    EXPECT_THAT(
        core->calls,
        ElementsAre(
            "GetIDForDocument(\"/a.ai\", zeroed 256, 256)",
            "UpdateDocumentFontUsage(\"id-1\", "
            R"("{"DocumentFonts":[{"PostScriptName":"A"}],"LinkedDocuments":["/logo.ai"]}"))",
            "HandleMenuSelection(\"id-1\", \"\", \"1\", "
            R"("[{"PostScriptName":"A"},{"PostScriptName":"HostSans-Regular"},)"
            R"({"PostScriptName":"A"}]"))"));
}

TEST_F(SelectionFonts, CollectsTheFontsAfterTheUsageIsUpdated)
{
    std::size_t before = 99;
    core->onCall["UpdateDocumentFontUsage"] = [&] {
        before = host.CountCalls("AIArtSetSuite.NewArtSet");
    };
    Go();
    EXPECT_EQ(0U, before);
    EXPECT_EQ(1U, host.CountCalls("AIArtSetSuite.NewArtSet"));
}

TEST_F(SelectionFonts, DoesNotExamineADocumentWithoutAnId)
{
    core->documentID = "";
    Go();
    EXPECT_EQ(0U, host.CountCalls("AIMatchingArtSuite"));
    EXPECT_EQ(0U, host.CountCalls("AIArtSetSuite"));
    EXPECT_EQ("HandleMenuSelection(\"\", \"\", \"1\", \"\")", LastSelection());
    EXPECT_FALSE(HasTrace(kNoFonts));
}

TEST_F(SelectionFonts, UpdatesAnEmptyUsageToo)
{
    host.GiveNull("AIMatchingArtSuite.GetMatchingArt");
    Go();
    EXPECT_EQ("UpdateDocumentFontUsage(\"id-1\", \"\")", core->calls.at(1));
}

TEST_F(SelectionFonts, PassesNoFontsForADocumentWithoutText)
{
    Document().frames.clear();
    Document().storyFonts.clear();
    Go();
    EXPECT_EQ(1U, CountTraces(kNoFonts));
    EXPECT_EQ("\"\"", Fonts());
    EXPECT_FALSE(HasTrace(kBarrier));
}

TEST_F(SelectionFonts, PassesAnEmptyTextIfAllFontsAreNull)
{
    Document().storyFonts = {kNullFont};
    Go();
    EXPECT_FALSE(HasTrace(kNoFonts));
    EXPECT_EQ("\"\"", Fonts());
}

TEST_F(SelectionFonts, PassesTheFontsFoundBeforeAFailure)
{
    // The usage report makes the first of these calls.
    int calls = 0;
    host.OnCall("AIFontSuite.FontKeyFromFontRef", [&] {
        if (++calls == 3) throw kHostError;
    });
    Go();
    EXPECT_EQ(1U, CountTraces(kNoFonts));
    EXPECT_EQ(R"("[{"PostScriptName":"A"}]")", Fonts());
}

TEST_F(SelectionFonts, CatchesAnyExceptionOfTheScan)
{
    host.OnCall("AIArtSetSuite.NewArtSet", [] { throw std::runtime_error("x"); });
    Go();
    EXPECT_EQ(1U, CountTraces(kNoFonts));
    EXPECT_EQ("\"\"", Fonts());
}

TEST_F(SelectionFonts, PassesNoFontsAndWritesNoTraceAfterATextEngineError)
{
    host.FailCall("ATE TextFrame.GetStory", 1, kHostError);
    Go();
    EXPECT_FALSE(HasTrace(kNoFonts));
    EXPECT_EQ("\"\"", Fonts());
}

TEST_F(SelectionFonts, UsageThatIsNotUTF8EndsTheMessage)
{
    Document().frames = {{{"A\xFF"}}};
    Go();
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetIDForDocument"));
}

TEST_F(SelectionFonts, FontThatIsNotUTF8EndsTheMessageAfterTheUsageIsUpdated)
{
    Document().storyFonts = {"A\xFF"};
    Go();
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_FALSE(HasTrace(kNoFonts));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetIDForDocument", "UpdateDocumentFontUsage"));
}

TEST_F(SelectionFonts, ExceptionOfTheUpdateReachesTheBarrier)
{
    core->onCall["UpdateDocumentFontUsage"] = [] { throw std::runtime_error("x"); };
    Go();
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_EQ("not called", LastSelection());
}

TEST_F(SelectionFonts, ExaminesADocumentFoundByItsTemplate)
{
    core->onCall["GetIDForDocument"] = [this] {
        core->documentID = core->calls.size() == 1 ? "" : "id-1";
    };
    (void)SendCheck("/t.ait");
    Document().path = "Untitled-1";
    EXPECT_EQ(0, SendNotifier(kOpened, host.DocumentHandle(0)));
    Forget();
    Go();
    EXPECT_EQ("GetIDForDocument(\"/t.ait\", zeroed 256, 256)", core->calls.at(1));
    EXPECT_NE("\"\"", Fonts());
}

}  // namespace
