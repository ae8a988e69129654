#include <algorithm>

#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "UsageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr char kIsEnabled[] = "PluginIsEnabled(true, false)";

class DocumentSaved : public UsageFixture {
protected:
    DocumentSaved() { GiveNullForNoArt(); }

    static std::string Save(const std::string& path, const std::string& usage)
    {
        return "HandleSaveDocument(\"" + path + "\", \"" + usage + "\")";
    }
    static bool TouchedTheRegistry()
    {
        const std::vector<std::string> texts = TraceTexts();
        return std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
            return text.find("ForDocumentHandle(") != std::string::npos;
        });
    }
};

struct SaveRow {
    const char* name;
    const char* notifier;
    const char* trace;
};

const SaveRow kSaves[] = {
    {"AfterSave", kAfterSave, "...afterSaveNotifier"},
    {"AfterSaveAs", kAfterSaveAs, "...afterSaveAsNotifier"},
    {"DiskWritingComplete", kWritten, "...diskWritingCompleteNotifier"},
};

class EachSaveNotifier : public DocumentSaved, public ::testing::WithParamInterface<SaveRow> {};

INSTANTIATE_TEST_SUITE_P(Notifiers, EachSaveNotifier, ::testing::ValuesIn(kSaves),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(EachSaveNotifier, PassesTheUsageToPluginCore)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    EXPECT_EQ(0, SendNotifier(GetParam().notifier, document));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}, {"/Art/logo.ai"}))));
}

TEST_P(EachSaveNotifier, TracesOnlyItsOwnField)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendNotifier(GetParam().notifier));
    for (const SaveRow& row : kSaves) {
        EXPECT_EQ(row.trace == GetParam().trace ? 1U : 0U, CountTraces(row.trace)) << row.trace;
    }
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED NOTIFIER MESSAGE TYPE"));
}

TEST_P(EachSaveNotifier, DoesNotAskTheHostIfDisabled)
{
    core->enabled = false;
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendNotifier(GetParam().notifier));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_EQ(0U, Scans());
    EXPECT_FALSE(HasTrace(GetParam().trace));
}

TEST_P(EachSaveNotifier, IgnoresADocumentThatIsStillModified)
{
    AddDocument("/a.ai", {"A"});
    Current().modified = true;
    EXPECT_EQ(0, SendNotifier(GetParam().notifier));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_EQ(0U, host.CountCalls("AIDocumentSuite.GetDocumentFileSpecification"));
    // By then the document has been scanned and the trace written.
    EXPECT_EQ(1U, Scans());
    EXPECT_TRUE(HasTrace(GetParam().trace));
}

TEST_P(EachSaveNotifier, ReturnsTheHostsStatusForThePath)
{
    AddDocument("/a.ai", {"A"});
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(4711, SendNotifier(GetParam().notifier));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace("GoNotifier returning 4711"));
}

TEST_F(DocumentSaved, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleDocumentSavedNotifier(nullptr));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(DocumentSaved, ReportsASaveTwiceIfThereAreTwoNotifiers)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSaveAs));
    EXPECT_EQ(0, SendNotifier(kWritten));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"})), kIsEnabled,
                                         Save("/a.ai", Usage({"A"}))));
}

TEST_F(DocumentSaved, ReportsTheCurrentDocumentAndNotTheOneOfTheMessage)
{
    _t_AIDocument* const named = AddDocument("/a.ai", {"A"});
    AddDocument("/b.ai", {"B"});
    EXPECT_EQ(0, SendNotifier(kAfterSave, named));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/b.ai", Usage({"B"}))));
}

TEST_F(DocumentSaved, ScansTracesAndThenAsksTheHost)
{
    AddDocument("/a.ai", {"A"});
    std::vector<std::string> order;
    host.OnCall("AIMatchingArtSuite.GetMatchingArt", [&] {
        order.push_back(HasTrace("...afterSaveNotifier") ? "scan, traced" : "scan");
    });
    host.OnCall("AIDocumentSuite.GetDocumentModified", [&] {
        order.push_back(HasTrace("...afterSaveNotifier") ? "modified, traced" : "modified");
    });
    host.OnCall("AIDocumentSuite.GetDocumentFileSpecification", [&] { order.push_back("path"); });
    core->onCall["PluginIsEnabled"] = [&] { order.push_back("enabled"); };
    core->onCall["HandleSaveDocument"] = [&] { order.push_back("save"); };
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(order, ElementsAre("enabled", "scan", "scan", "modified, traced", "path", "save"));
    core->onCall.clear();
}

TEST_F(DocumentSaved, TreatsADocumentAsUnmodifiedIfTheHostFails)
{
    AddDocument("/a.ai", {"A"});
    Current().modified = true;
    host.FailCall("AIDocumentSuite.GetDocumentModified", 1, 4711);
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}))));
}

TEST_F(DocumentSaved, IgnoresTheStatusOfTheModifiedFlag)
{
    AddDocument("/a.ai", {"A"});
    const auto original = DocumentSuite()->GetDocumentModified;
    DocumentSuite()->GetDocumentModified = [](bool* modified) {
        *modified = true;
        return AIErr(4711);
    };
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    DocumentSuite()->GetDocumentModified = original;
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(DocumentSaved, IgnoresADocumentWithAnEmptyPath)
{
    AddDocument("", {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(DocumentSaved, ReturnsTheHostsStatusWithoutADocument)
{
    EXPECT_EQ(0x4E4F4443, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(DocumentSaved, PassesABareNameLikeAPath)
{
    AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("Untitled-1", Usage({"A"}))));
}

TEST_F(DocumentSaved, PassesAnEmptyReport)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", "")));
}

TEST_F(DocumentSaved, NeverReportsAFileOfVersion8)
{
    const std::string path = ScratchFile("a.eps", "%!PS\n%%Creator: Adobe Illustrator(R) 8.0\n");
    AddDocument(path, {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, kIsEnabled));
}

TEST_F(DocumentSaved, ReportsAFileOfAnotherVersion)
{
    const std::string path = ScratchFile("a.eps", "%!PS\n%%Creator: Adobe Illustrator(R) 9.0\n");
    AddDocument(path, {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, Usage({"A"}))));
}

TEST_F(DocumentSaved, IgnoresTheStatusesOfPluginCore)
{
    core->statuses["PluginIsEnabled"] = 9;
    core->statuses["HandleSaveDocument"] = 9;
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}))));
}

TEST_F(DocumentSaved, DoesNotUseTheRegistry)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path, {"A"});
    EXPECT_EQ(0, SendNotifier(kAfterSaveAs, document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, Usage({"A"}))));
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentSaved, ExceptionOfTheScanEndsAtTheBarrier)
{
    AddDocument("/a.ai", {kNoUTF8});
    EXPECT_EQ(0, SendNotifier(kAfterSave));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

// The notifier's handle is compared for the trace only.
TEST_F(DocumentSaved, HandlesAnUnknownNotifierWithoutTracingAField)
{
    AddDocument("/a.ai", {"A"});
    AINotifierMessage message = host.NotifierMessage(kChanged);
    EXPECT_EQ(0, HandleDocumentSavedNotifier(&message));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}))));
    EXPECT_FALSE(HasTraceBeginningWith("..."));
}

}  // namespace
