#include <stdexcept>

#include "DocumentRegistry.h"
#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

const char* const kNoDocument = "No document is open.";

// Which document is passed to PluginCore with a command.
class SelectionDocument : public RunningMenuFixture {
protected:
    SelectionDocument()
    {
        EXPECT_EQ(0U, Add("1", "One", "One"));
        host.GiveNull("AIMatchingArtSuite.GetMatchingArt");  // for an empty usage
    }
    ~SelectionDocument() override { ForgetAboutDocumentHandle(nullptr); }

    void Go() { EXPECT_EQ(0, SendGo(Item("One").handle)); }
    // Adds a document whose path PluginCore doesn't know because it was made from a template.
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

TEST_F(SelectionDocument, PassesTheIdForThePath)
{
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"/a.ai\", zeroed 256, 256)",
                                         "UpdateDocumentFontUsage(\"id-1\", \"\")",
                                         "HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")"));
    EXPECT_FALSE(HasTrace(kNoDocument));
    EXPECT_EQ(0U, host.CountCalls("AIDocumentSuite.GetDocument()"));
}

TEST_F(SelectionDocument, IgnoresTheStatusOfTheId)
{
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    core->statuses["GetIDForDocument"] = 0x07000000;
    Go();
    EXPECT_EQ("HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, IgnoresTheOtherStatuses)
{
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    core->statuses["UpdateDocumentFontUsage"] = 0x07000000;
    core->statuses["HandleMenuSelection"] = 0x07000000;
    Go();
    EXPECT_EQ("HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, PassesTheCommandWithoutADocument)
{
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"\", zeroed 256, 256)",
                                         "HandleMenuSelection(\"\", \"\", \"1\", \"\")"));
    EXPECT_EQ(1U, host.CountCalls("AIDocumentSuite.GetDocument()"));
    EXPECT_FALSE(HasTrace(kNoDocument));
}

TEST_F(SelectionDocument, FailureToGetTheHandleEndsTheSearchWithoutATrace)
{
    AddDocumentFromTemplate("/t.ait");
    host.FailCall("AIDocumentSuite.GetDocument", 1, kHostError);
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"Untitled-1\", zeroed 256, 256)",
                                         "HandleMenuSelection(\"\", \"\", \"1\", \"\")"));
    EXPECT_FALSE(HasTrace(kNoDocument));
    EXPECT_FALSE(HasTraceBeginningWith("Entering GetTemplatePathForDocumentHandle"));
}

TEST_F(SelectionDocument, FindsTheIdByTheTemplate)
{
    AddDocumentFromTemplate("/t.ait");
    Go();
    EXPECT_THAT(core->calls, ElementsAre("GetIDForDocument(\"Untitled-1\", zeroed 256, 256)",
                                         "GetIDForDocument(\"/t.ait\", zeroed 256, 256)",
                                         "UpdateDocumentFontUsage(\"id-7\", \"\")",
                                         "HandleMenuSelection(\"id-7\", \"\", \"1\", \"\")"));
}

TEST_F(SelectionDocument, PassesTheSizeThatTheFirstCallLeftToTheSecond)
{
    AddDocumentFromTemplate("/t.ait");
    core->documentIDSize = 17;
    Go();
    EXPECT_EQ("GetIDForDocument(\"/t.ait\", zeroed 17, 17)", core->calls.at(1));
    EXPECT_EQ("HandleMenuSelection(\"id-7\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, PassesNoIdIfTheTemplateIsUnknownToo)
{
    AddDocumentFromTemplate("/t.ait");
    core->onCall.clear();
    core->documentID = "";
    Go();
    EXPECT_THAT(core->CalledNames(),
                ElementsAre("GetIDForDocument", "GetIDForDocument", "HandleMenuSelection"));
    EXPECT_EQ("HandleMenuSelection(\"\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, MakesNoSecondCallWithoutATemplate)
{
    AddDocumentFromTemplate("");
    Go();
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetIDForDocument", "HandleMenuSelection"));
    EXPECT_FALSE(HasTrace(kNoDocument));
}

TEST_F(SelectionDocument, CreatesARecordWhenItAsksForTheTemplate)
{
    host.AddDocument("/unknown.ai");
    ForgetAboutDocumentHandle(host.DocumentHandle(0));
    Forget();
    Go();
    EXPECT_EQ(host.DocumentHandle(0), GetDocumentHandleForTemplatePath(""));
}

TEST_F(SelectionDocument, CreatesNoRecordForAKnownDocument)
{
    host.AddDocument("/known.ai");
    core->documentID = "id-1";
    ForgetAboutDocumentHandle(host.DocumentHandle(0));
    Go();
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath(""));
}

TEST_F(SelectionDocument, CatchesAnExceptionOfTheHost)
{
    AddDocumentFromTemplate("/t.ait");
    host.OnCall("AIDocumentSuite.GetDocument", [] { throw kHostError; });
    Go();
    EXPECT_EQ(1U, CountTraces(kNoDocument));
    EXPECT_EQ("HandleMenuSelection(\"\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, CatchesAnExceptionOfTheSecondCall)
{
    AddDocumentFromTemplate("/t.ait");
    core->onCall["GetIDForDocument"] = [this] {
        core->documentID = "";
        if (core->calls.back().find("/t.ait") != std::string::npos) throw std::runtime_error("x");
    };
    Go();
    EXPECT_EQ(1U, CountTraces(kNoDocument));
    EXPECT_EQ("HandleMenuSelection(\"\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, ExceptionOfTheFirstCallReachesTheBarrier)
{
    host.AddDocument("/a.ai");
    core->onCall["GetIDForDocument"] = [] { throw std::runtime_error("x"); };
    Go();
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_FALSE(HasTrace(kNoDocument));
    EXPECT_EQ("not called", LastSelection());
}

TEST_F(SelectionDocument, PassesAnEmptyPathForADocumentWithoutOne)
{
    host.AddDocument("");
    core->documentID = "id-1";
    Go();
    EXPECT_EQ("GetIDForDocument(\"\", zeroed 256, 256)", core->calls.front());
    EXPECT_EQ("HandleMenuSelection(\"id-1\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionDocument, PassesCommandsEvenIfDisabled)
{
    core->enabled = false;
    host.AddDocument("/a.ai");
    core->documentID = "id-1";
    Go();
    EXPECT_THAT(core->CalledNames(),
                ElementsAre("GetIDForDocument", "UpdateDocumentFontUsage", "HandleMenuSelection"));
}

}  // namespace
