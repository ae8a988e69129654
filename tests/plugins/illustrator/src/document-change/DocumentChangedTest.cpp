#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "UsageTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class DocumentChanged : public UsageTest {
protected:
    DocumentChanged() { GiveNullForNoArt(); }
    AIErr SendChanged(void* document) { return SendNotifier(kChanged, document); }
    std::size_t AskedPaths()
    {
        return host.CountCalls("AIDocumentSuite.GetDocumentFileSpecification");
    }
    static bool TouchedTheRegistry()
    {
        return HasTraceBeginningWith("Entering GetFilePathForDocumentHandle") ||
               HasTraceBeginningWith("Entering SetF") || HasTraceBeginningWith("Entering SetT");
    }
};

TEST_F(DocumentChanged, NullMessageIsAParameterError)
{
    EXPECT_EQ(HandleDocumentChangedNotifier(nullptr), kParameterError);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(DocumentChanged, StoresAFreshReport)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    SetFontUsageForDocumentHandle(document, "old");
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}, {"/Art/logo.ai"}));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
}

TEST_F(DocumentChanged, EveryMessageScansAnew)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(Scans(), 2U);
    SetFonts({"B"});
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"B"}));
}

TEST_F(DocumentChanged, EmptyReportReplacesTheStoredOne)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A", "HostSans-Regular"});
    SetFontUsageForDocumentHandle(document, "old");
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "");
}

TEST_F(DocumentChanged, CurrentDocumentCountsAndNotTheOneNamed)
{
    _t_AIDocument* const named = AddDocument("/a.ai", {"A"});
    _t_AIDocument* const current = AddDocument("/b.ai", {"B"});
    SetFontUsageForDocumentHandle(named, "old");
    EXPECT_EQ(SendChanged(named), 0);
    EXPECT_TRUE(HasTrace(
        "Entering HandleDocumentChangedNotifier(message->notifyData = " + Low32(named) + ")"));
    EXPECT_EQ(GetFontUsageForDocumentHandle(named), "old");
    EXPECT_EQ(GetFontUsageForDocumentHandle(current), Usage({"B"}));
}

TEST_F(DocumentChanged, DisabledAsksTheHostNothing)
{
    core->enabled = false;
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_EQ(Scans(), 0U);
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentChanged, WithoutADocumentNoRecordIsMade)
{
    EXPECT_EQ(SendChanged(nullptr), 0);
    EXPECT_EQ(host.CountCalls("AIDocumentSuite.GetDocument()"), 1U);
    EXPECT_EQ(Scans(), 0U);
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentChanged, CurrentDocumentThatCannotBeHadIsNone)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    host.FailCall("AIDocumentSuite.GetDocument", 1, 4711);
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(Scans(), 0U);
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentChanged, StatusOfTheCurrentDocumentIsNotRead)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    const auto original = DocumentSuite()->GetDocument;
    DocumentSuite()->GetDocument = [](_t_AIDocument** current) {
        *current = ScriptedHost::Current().DocumentHandle(0);
        return AIErr(4711);
    };
    EXPECT_EQ(SendChanged(document), 0);
    DocumentSuite()->GetDocument = original;
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}));
}

TEST_F(DocumentChanged, UnknownDocumentGetsARecordWithoutPath)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(AskedPaths(), 0U);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "");
    EXPECT_EQ(GetTimestampForDocumentHandle(document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}));
}

TEST_F(DocumentChanged, EmptyPathStaysEmptyHoweverOften)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(AskedPaths(), 0U);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "");
}

TEST_F(DocumentChanged, BareNameIsReplacedByAPath)
{
    for (const char* const path : {"/folder/a.ai", "C:\\a.ai"}) {
        _t_AIDocument* const document = AddDocument(path, {"A"});
        SetFilePathForDocumentHandle(document, "Untitled-1");
        EXPECT_EQ(SendChanged(document), 0);
        EXPECT_EQ(GetFilePathForDocumentHandle(document), path);
    }
}

TEST_F(DocumentChanged, BareNameIsReplacedByNoOtherName)
{
    for (const char* const path : {"Untitled-2", ""}) {
        _t_AIDocument* const document = AddDocument(path, {"A"});
        SetFilePathForDocumentHandle(document, "Untitled-1");
        ClearTraces();
        EXPECT_EQ(SendChanged(document), 0);
        EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle")) << path;
        EXPECT_EQ(GetFilePathForDocumentHandle(document), "Untitled-1") << path;
        EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"})) << path;
    }
}

TEST_F(DocumentChanged, BareNameStaysIfThePathCannotBeHad)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    SetFilePathForDocumentHandle(document, "Untitled-1");
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "Untitled-1");
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}));
}

TEST_F(DocumentChanged, FullPathStaysWhateverTheHostSays)
{
    for (const char* const path : {"/old/a.ai", "C:\\a.ai"}) {
        _t_AIDocument* const document = AddDocument("/new/b.ai", {"A"});
        SetFilePathForDocumentHandle(document, path);
        EXPECT_EQ(SendChanged(document), 0);
        EXPECT_EQ(AskedPaths(), 0U);
        EXPECT_EQ(GetFilePathForDocumentHandle(document), path);
    }
}

TEST_F(DocumentChanged, TimeAndTemplateStay)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    SetFilePathForDocumentHandle(document, "Untitled-1");
    SetTimestampForDocumentHandle(document, 7);
    SetTemplatePathForDocumentHandle(document, "/t.ait");
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetTimestampForDocumentHandle(document), 7);
    EXPECT_EQ(GetTemplatePathForDocumentHandle(document), "/t.ait");
}

TEST_F(DocumentChanged, ExceptionOfTheScanEndsAtTheBarrierAndKeepsTheUsage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {kNoUTF8});
    SetFilePathForDocumentHandle(document, "Untitled-1");
    SetFontUsageForDocumentHandle(document, "old");
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "old");
    // The path came before the scan.
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "/a.ai");
    SetFonts({"A"});
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}));
}

TEST_F(DocumentChanged, ExceptionOfAWrapperEndsAtTheBarrierAndKeepsTheUsage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    SetFontUsageForDocumentHandle(document, "old");
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, 4711);
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "old");
    host.artArrays.clear();
}

TEST_F(DocumentChanged, LostInsideAnotherMessageAndRepairedByTheNext)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendChanged(document), 0);
    SetFonts({"B"});
    AIErr nested = 0;
    core->onCall["HandleCreateNewDocument"] = [&] { nested = SendChanged(document); };
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_EQ(nested, 1);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}));
    EXPECT_EQ(SendChanged(document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"B"}));
}

}  // namespace
