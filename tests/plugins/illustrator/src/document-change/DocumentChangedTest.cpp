#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "UsageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class DocumentChanged : public UsageFixture {
protected:
    DocumentChanged() { GiveNullForNoArt(); }
    AIErr SendChanged(void* document) { return SendNotifier(kChanged, document); }
    std::size_t PathRequests()
    {
        return host.CountCalls("AIDocumentSuite.GetDocumentFileSpecification");
    }
    static bool TouchedTheRegistry()
    {
        return HasTraceBeginningWith("Entering GetFilePathForDocumentHandle") ||
               HasTraceBeginningWith("Entering SetF") || HasTraceBeginningWith("Entering SetT");
    }
};

TEST_F(DocumentChanged, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleDocumentChangedNotifier(nullptr));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(DocumentChanged, StoresANewReport)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    SetFontUsageForDocumentHandle(document, "old");
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(Usage({"A"}, {"/Art/logo.ai"}), GetFontUsageForDocumentHandle(document));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
}

TEST_F(DocumentChanged, ScansAgainForEachMessage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(2U, Scans());
    SetFonts({"B"});
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(Usage({"B"}), GetFontUsageForDocumentHandle(document));
}

TEST_F(DocumentChanged, EmptyReportReplacesTheStoredOne)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A", "HostSans-Regular"});
    SetFontUsageForDocumentHandle(document, "old");
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ("", GetFontUsageForDocumentHandle(document));
}

TEST_F(DocumentChanged, ReportsTheCurrentDocumentAndNotTheOneOfTheMessage)
{
    _t_AIDocument* const named = AddDocument("/a.ai", {"A"});
    _t_AIDocument* const current = AddDocument("/b.ai", {"B"});
    SetFontUsageForDocumentHandle(named, "old");
    EXPECT_EQ(0, SendChanged(named));
    EXPECT_TRUE(HasTrace(
        "Entering HandleDocumentChangedNotifier(message->notifyData = " + Low32(named) + ")"));
    EXPECT_EQ("old", GetFontUsageForDocumentHandle(named));
    EXPECT_EQ(Usage({"B"}), GetFontUsageForDocumentHandle(current));
}

TEST_F(DocumentChanged, DoesNotAskTheHostIfDisabled)
{
    core->enabled = false;
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_EQ(0U, Scans());
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentChanged, CreatesNoRecordWithoutADocument)
{
    EXPECT_EQ(0, SendChanged(nullptr));
    EXPECT_EQ(1U, host.CountCalls("AIDocumentSuite.GetDocument()"));
    EXPECT_EQ(0U, Scans());
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentChanged, TreatsAFailureToGetTheDocumentAsNoDocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    host.FailCall("AIDocumentSuite.GetDocument", 1, 4711);
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(0U, Scans());
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentChanged, IgnoresTheStatusIfThereIsADocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    const auto original = DocumentSuite()->GetDocument;
    DocumentSuite()->GetDocument = [](_t_AIDocument** current) {
        *current = ScriptedHost::Current().DocumentHandle(0);
        return AIErr(4711);
    };
    EXPECT_EQ(0, SendChanged(document));
    DocumentSuite()->GetDocument = original;
    EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document));
}

TEST_F(DocumentChanged, CreatesARecordWithoutPathForAnUnknownDocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(0U, PathRequests());
    EXPECT_EQ("", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(0, GetTimestampForDocumentHandle(document));
    EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document));
}

TEST_F(DocumentChanged, NeverReplacesAnEmptyPath)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(0U, PathRequests());
    EXPECT_EQ("", GetFilePathForDocumentHandle(document));
}

TEST_F(DocumentChanged, ReplacesABareNameByAPath)
{
    for (const char* const path : {"/folder/a.ai", "C:\\a.ai"}) {
        _t_AIDocument* const document = AddDocument(path, {"A"});
        SetFilePathForDocumentHandle(document, "Untitled-1");
        EXPECT_EQ(0, SendChanged(document));
        EXPECT_EQ(path, GetFilePathForDocumentHandle(document));
    }
}

TEST_F(DocumentChanged, DoesNotReplaceABareNameByAnotherName)
{
    for (const char* const path : {"Untitled-2", ""}) {
        _t_AIDocument* const document = AddDocument(path, {"A"});
        SetFilePathForDocumentHandle(document, "Untitled-1");
        ClearTraces();
        EXPECT_EQ(0, SendChanged(document));
        EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle")) << path;
        EXPECT_EQ("Untitled-1", GetFilePathForDocumentHandle(document)) << path;
        EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document)) << path;
    }
}

TEST_F(DocumentChanged, KeepsABareNameIfTheHostHasNoPath)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    SetFilePathForDocumentHandle(document, "Untitled-1");
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ("Untitled-1", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document));
}

TEST_F(DocumentChanged, NeverReplacesAFullPath)
{
    for (const char* const path : {"/old/a.ai", "C:\\a.ai"}) {
        _t_AIDocument* const document = AddDocument("/new/b.ai", {"A"});
        SetFilePathForDocumentHandle(document, path);
        EXPECT_EQ(0, SendChanged(document));
        EXPECT_EQ(0U, PathRequests());
        EXPECT_EQ(path, GetFilePathForDocumentHandle(document));
    }
}

TEST_F(DocumentChanged, KeepsTimestampAndTemplate)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    SetFilePathForDocumentHandle(document, "Untitled-1");
    SetTimestampForDocumentHandle(document, 7);
    SetTemplatePathForDocumentHandle(document, "/t.ait");
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(7, GetTimestampForDocumentHandle(document));
    EXPECT_EQ("/t.ait", GetTemplatePathForDocumentHandle(document));
}

TEST_F(DocumentChanged, ExceptionOfTheScanKeepsTheStoredUsage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {kNoUTF8});
    SetFilePathForDocumentHandle(document, "Untitled-1");
    SetFontUsageForDocumentHandle(document, "old");
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ("old", GetFontUsageForDocumentHandle(document));
    // The path was stored before the scan.
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(document));
    SetFonts({"A"});
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document));
}

TEST_F(DocumentChanged, ExceptionOfAWrapperKeepsTheStoredUsage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    SetFontUsageForDocumentHandle(document, "old");
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, 4711);
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ("old", GetFontUsageForDocumentHandle(document));
    host.artArrays.clear();
}

TEST_F(DocumentChanged, NextMessageRepairsOneLostInsideAnotherMessage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendChanged(document));
    SetFonts({"B"});
    AIErr nested = 0;
    core->onCall["HandleCreateNewDocument"] = [&] { nested = SendChanged(document); };
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_EQ(1, nested);
    EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document));
    EXPECT_EQ(0, SendChanged(document));
    EXPECT_EQ(Usage({"B"}), GetFontUsageForDocumentHandle(document));
}

}  // namespace
