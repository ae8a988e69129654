#include <stdexcept>

#include "DocumentRegistry.h"
#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

const char* const kNoDocument = "No document is open.";

// Which document a command concerns.
class SelectionDocument : public RunningMenuTest {
protected:
    SelectionDocument()
    {
        EXPECT_EQ(Add("1", "One", "One"), 0U);
        host.GiveNull("AIMatchingArtSuite.GetMatchingArt");  // so the usage is the empty text
    }
    ~SelectionDocument() override { ForgetAboutDocumentHandle(nullptr); }

    void Go() { EXPECT_EQ(SendGo(Item("One").handle), 0); }
    // A document whose path PluginCore doesn't know, as one made from a template.
    void AddDocumentFromTemplate(const std::string& templatePath)
    {
        host.AddDocument("Untitled-1");
        SetTemplatePathForDocumentHandle(host.DocumentHandle(host.currentDocument), templatePath);
        core->onCall["GetIDForDocument"] = [this] {
            const bool untitled = core->calls.back().find("\"Untitled-1\"") != std::string::npos;
            core->documentID = untitled ? "" : "id-7";
        };
        Forget();
    }
};

TEST_F(SelectionDocument, IdOfItsPathIsPassedOn)
{
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"/a.ai\", zeroed 256, 256)",
                                         "UpdateDocumentFontUsage(\"id-1\", \"\")",
                                         "HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")"));
    EXPECT_FALSE(HasTrace(kNoDocument));
    EXPECT_EQ(host.CountCalls("AIDocumentSuite.GetDocument()"), 0U);
}

TEST_F(SelectionDocument, StatusOfTheIdIsNotLookedAt)
{
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    core->statuses["GetIDForDocument"] = 0x07000000;
    Go();
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, OtherStatusesAreNotLookedAtEither)
{
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    core->statuses["UpdateDocumentFontUsage"] = 0x07000000;
    core->statuses["HandleMenuSelection"] = 0x07000000;
    Go();
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, WithoutADocumentTheCommandGoesOnAllTheSame)
{
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"\", zeroed 256, 256)",
                                         "HandleMenuSelection(\"\", \"\", \"1\", \"\")"));
    EXPECT_EQ(host.CountCalls("AIDocumentSuite.GetDocument()"), 1U);
    EXPECT_FALSE(HasTrace(kNoDocument));
}

TEST_F(SelectionDocument, RefusedHandleEndsTheSearchWithoutATrace)
{
    AddDocumentFromTemplate("/t.ait");
    host.FailCall("AIDocumentSuite.GetDocument", 1, kHostError);
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"Untitled-1\", zeroed 256, 256)",
                                         "HandleMenuSelection(\"\", \"\", \"1\", \"\")"));
    EXPECT_FALSE(HasTrace(kNoDocument));
    EXPECT_FALSE(HasTraceBeginningWith("Entering GetTemplatePathForDocumentHandle"));
}

TEST_F(SelectionDocument, TemplatesPathFindsTheId)
{
    AddDocumentFromTemplate("/t.ait");
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"Untitled-1\", zeroed 256, 256)",
                                         "GetIDForDocument(\"/t.ait\", zeroed 256, 256)",
                                         "UpdateDocumentFontUsage(\"id-7\", \"\")",
                                         "HandleMenuSelection(\"id-7\", \"\", \"1\", \"\")"));
}

TEST_F(SelectionDocument, SecondCallGetsTheSizeThatTheFirstLeft)
{
    AddDocumentFromTemplate("/t.ait");
    core->documentIDSize = 17;
    Go();
    EXPECT_EQ(core->calls.at(1), "GetIDForDocument(\"/t.ait\", zeroed 17, 17)");
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"id-7\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, TemplateThatIsUnknownTooGivesNoId)
{
    AddDocumentFromTemplate("/t.ait");
    core->onCall.clear();
    core->documentID = "";
    Go();
    EXPECT_THAT(core->CalledNames(),
                ElementsAre("GetIDForDocument", "GetIDForDocument", "HandleMenuSelection"));
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, WithoutATemplateThereIsNoSecondCall)
{
    AddDocumentFromTemplate("");
    Go();
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetIDForDocument", "HandleMenuSelection"));
    EXPECT_FALSE(HasTrace(kNoDocument));
}

TEST_F(SelectionDocument, AskingForTheTemplateMakesARecord)
{
    host.AddDocument("/unknown.ai");
    ForgetAboutDocumentHandle(host.DocumentHandle(0));
    Forget();
    Go();
    EXPECT_EQ(GetDocumentHandleForTemplatePath(""), host.DocumentHandle(0));
}

TEST_F(SelectionDocument, KnownDocumentMakesNoRecord)
{
    host.AddDocument("/known.ai");
    core->documentID = "id-1";
    ForgetAboutDocumentHandle(host.DocumentHandle(0));
    Go();
    EXPECT_EQ(GetDocumentHandleForTemplatePath(""), nullptr);
}

TEST_F(SelectionDocument, ExceptionFromTheHandleIsCaught)
{
    AddDocumentFromTemplate("/t.ait");
    host.OnCall("AIDocumentSuite.GetDocument", [] { throw kHostError; });
    Go();
    EXPECT_EQ(CountTraces(kNoDocument), 1U);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, ExceptionFromTheSecondCallIsCaught)
{
    AddDocumentFromTemplate("/t.ait");
    core->onCall["GetIDForDocument"] = [this] {
        core->documentID = "";
        if (core->calls.back().find("/t.ait") != std::string::npos) throw std::runtime_error("x");
    };
    Go();
    EXPECT_EQ(CountTraces(kNoDocument), 1U);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, ExceptionFromTheFirstCallEndsAtTheBarrier)
{
    host.AddDocument("/a.ai");
    core->onCall["GetIDForDocument"] = [] { throw std::runtime_error("x"); };
    Go();
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_FALSE(HasTrace(kNoDocument));
    EXPECT_EQ(LastSelection(), "not called");
}

TEST_F(SelectionDocument, DocumentWithoutAPathIsAskedForWithAnEmptyOne)
{
    host.AddDocument("");
    core->documentID = "id-1";
    Go();
    EXPECT_EQ(core->calls.front(), "GetIDForDocument(\"\", zeroed 256, 256)");
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")");
}

TEST_F(SelectionDocument, DisabledPluginPassesCommandsOnUnasked)
{
    core->enabled = false;
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    Go();
    EXPECT_THAT(core->CalledNames(),
                ElementsAre("GetIDForDocument", "UpdateDocumentFontUsage", "HandleMenuSelection"));
}

}  // namespace
