#include <stdexcept>

#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

const char* const kNoFonts = "No fonts found in document.";
const char* const kBarrier = "Unhandled exception in Typeloft plugin.";

// What a command tells of the document's fonts.
class SelectionFonts : public RunningMenuTest {
protected:
    SelectionFonts()
    {
        EXPECT_EQ(Add("1", "One", "One"), 0U);
        ScriptedDocument& document = host.AddDocument("/a.ai");
        document.frames = {{{"A"}}};
        document.storyFonts = {"A", "HostSans-Regular", "A"};
        core->documentID = "id-1";
        Forget();
    }
    ScriptedDocument& Document() { return host.documents.back(); }
    void Go() { EXPECT_EQ(SendGo(Item("One").handle), 0); }
    // The fonts that the command comes with, in quotes.
    std::string Fonts()
    {
        const std::string beginning = "HandleMenuSelection(\"id-1\", \"\", \"1\", ";
        const std::string call = LastSelection();
        EXPECT_EQ(call.compare(0, beginning.size(), beginning), 0) << call;
        if (call.size() <= beginning.size()) return call;
        return call.substr(beginning.size(), call.size() - beginning.size() - 1);
    }
};

TEST_F(SelectionFonts, UsageIsUpdatedBeforeTheCommand)
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

TEST_F(SelectionFonts, FontsAreTakenAfterTheUsageIsUpdated)
{
    std::size_t before = 99;
    core->onCall["UpdateDocumentFontUsage"] = [&] {
        before = host.CountCalls("AIArtSetSuite.NewArtSet");
    };
    Go();
    EXPECT_EQ(before, 0U);
    EXPECT_EQ(host.CountCalls("AIArtSetSuite.NewArtSet"), 1U);
}

TEST_F(SelectionFonts, DocumentWithoutAnIdIsNotExamined)
{
    core->documentID = "";
    Go();
    EXPECT_EQ(host.CountCalls("AIMatchingArtSuite"), 0U);
    EXPECT_EQ(host.CountCalls("AIArtSetSuite"), 0U);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"\", \"1\", \"\")");
    EXPECT_FALSE(HasTrace(kNoFonts));
}

TEST_F(SelectionFonts, EmptyUsageIsUpdatedToo)
{
    host.GiveNull("AIMatchingArtSuite.GetMatchingArt");
    Go();
    EXPECT_EQ(core->calls.at(1), "UpdateDocumentFontUsage(\"id-1\", \"\")");
}

TEST_F(SelectionFonts, DocumentWithoutTextHasNoFonts)
{
    Document().frames.clear();
    Document().storyFonts.clear();
    Go();
    EXPECT_EQ(CountTraces(kNoFonts), 1U);
    EXPECT_EQ(Fonts(), "\"\"");
    EXPECT_FALSE(HasTrace(kBarrier));
}

TEST_F(SelectionFonts, NullFontsAloneGiveTheEmptyText)
{
    Document().storyFonts = {kNullFont};
    Go();
    EXPECT_FALSE(HasTrace(kNoFonts));
    EXPECT_EQ(Fonts(), "\"\"");
}

TEST_F(SelectionFonts, FontsBeforeAFailureArePassedOn)
{
    // The first look at a font belongs to the usage.
    int looks = 0;
    host.OnCall("AIFontSuite.FontKeyFromFontRef", [&] {
        if (++looks == 3) throw kHostError;
    });
    Go();
    EXPECT_EQ(CountTraces(kNoFonts), 1U);
    EXPECT_EQ(Fonts(), R"("[{"PostScriptName":"A"}]")");
}

TEST_F(SelectionFonts, AnyExceptionFromTheScanIsCaught)
{
    host.OnCall("AIArtSetSuite.NewArtSet", [] { throw std::runtime_error("x"); });
    Go();
    EXPECT_EQ(CountTraces(kNoFonts), 1U);
    EXPECT_EQ(Fonts(), "\"\"");
}

TEST_F(SelectionFonts, TextEnginesErrorIsNotToldAndLeavesNoFonts)
{
    host.FailCall("ATE TextFrame.GetStory", 1, kHostError);
    Go();
    EXPECT_FALSE(HasTrace(kNoFonts));
    EXPECT_EQ(Fonts(), "\"\"");
}

TEST_F(SelectionFonts, UsageThatIsNotUTF8EndsAtTheBarrier)
{
    Document().frames = {{{"A\xFF"}}};
    Go();
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetIDForDocument"));
}

TEST_F(SelectionFonts, FontThatIsNotUTF8EndsAtTheBarrierOnceTheUsageIsUpdated)
{
    Document().storyFonts = {"A\xFF"};
    Go();
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_FALSE(HasTrace(kNoFonts));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetIDForDocument", "UpdateDocumentFontUsage"));
}

TEST_F(SelectionFonts, ExceptionFromUpdatingEndsAtTheBarrier)
{
    core->onCall["UpdateDocumentFontUsage"] = [] { throw std::runtime_error("x"); };
    Go();
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_EQ(LastSelection(), "not called");
}

TEST_F(SelectionFonts, DocumentFoundByItsTemplateIsExaminedToo)
{
    core->onCall["GetIDForDocument"] = [this] {
        core->documentID = core->calls.size() == 1 ? "" : "id-1";
    };
    (void)SendCheck("/t.ait");
    Document().path = "Untitled-1";
    EXPECT_EQ(SendNotifier(kOpened, host.DocumentHandle(0)), 0);
    Forget();
    Go();
    EXPECT_EQ(core->calls.at(1), "GetIDForDocument(\"/t.ait\", zeroed 256, 256)");
    EXPECT_NE(Fonts(), "\"\"");
}

}  // namespace
