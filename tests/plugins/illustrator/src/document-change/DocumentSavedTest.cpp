#include <algorithm>

#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "UsageTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr char kIsEnabled[] = "PluginIsEnabled(true, false)";

class DocumentSaved : public UsageTest {
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

TEST_P(EachSaveNotifier, HandsTheUsageOver)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    EXPECT_EQ(SendNotifier(GetParam().notifier, document), 0);
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}, {"/Art/logo.ai"}))));
}

TEST_P(EachSaveNotifier, IsTracedByItsFieldAlone)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendNotifier(GetParam().notifier), 0);
    for (const SaveRow& row : kSaves) {
        EXPECT_EQ(CountTraces(row.trace), row.trace == GetParam().trace ? 1U : 0U) << row.trace;
    }
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED NOTIFIER MESSAGE TYPE"));
}

TEST_P(EachSaveNotifier, DisabledAsksTheHostNothing)
{
    core->enabled = false;
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendNotifier(GetParam().notifier), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_EQ(Scans(), 0U);
    EXPECT_FALSE(HasTrace(GetParam().trace));
}

TEST_P(EachSaveNotifier, DocumentThatStaysModifiedSendsNothing)
{
    AddDocument("/a.ai", {"A"});
    Current().modified = true;
    EXPECT_EQ(SendNotifier(GetParam().notifier), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_EQ(host.CountCalls("AIDocumentSuite.GetDocumentFileSpecification"), 0U);
    // Scanned and traced it was by then.
    EXPECT_EQ(Scans(), 1U);
    EXPECT_TRUE(HasTrace(GetParam().trace));
}

TEST_P(EachSaveNotifier, PathThatCannotBeHadIsTheResult)
{
    AddDocument("/a.ai", {"A"});
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(SendNotifier(GetParam().notifier), 4711);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace("GoNotifier returning 4711"));
}

TEST_F(DocumentSaved, NullMessageIsAParameterError)
{
    EXPECT_EQ(HandleDocumentSavedNotifier(nullptr), kParameterError);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(DocumentSaved, SaveThatRaisesTwoNotifiersIsHandedOverTwice)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendNotifier(kAfterSaveAs), 0);
    EXPECT_EQ(SendNotifier(kWritten), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"})), kIsEnabled,
                                         Save("/a.ai", Usage({"A"}))));
}

TEST_F(DocumentSaved, CurrentDocumentCountsAndNotTheOneNamed)
{
    _t_AIDocument* const named = AddDocument("/a.ai", {"A"});
    AddDocument("/b.ai", {"B"});
    EXPECT_EQ(SendNotifier(kAfterSave, named), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/b.ai", Usage({"B"}))));
}

TEST_F(DocumentSaved, ScanThenTraceThenTheTwoQuestions)
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
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(order, ElementsAre("enabled", "scan", "scan", "modified, traced", "path", "save"));
    core->onCall.clear();
}

TEST_F(DocumentSaved, QuestionThatFailsCountsAsUnmodified)
{
    AddDocument("/a.ai", {"A"});
    Current().modified = true;
    host.FailCall("AIDocumentSuite.GetDocumentModified", 1, 4711);
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}))));
}

TEST_F(DocumentSaved, StatusOfTheQuestionIsNotRead)
{
    AddDocument("/a.ai", {"A"});
    const auto original = DocumentSuite()->GetDocumentModified;
    DocumentSuite()->GetDocumentModified = [](bool* modified) {
        *modified = true;
        return AIErr(4711);
    };
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    DocumentSuite()->GetDocumentModified = original;
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(DocumentSaved, EmptyPathSendsNothing)
{
    AddDocument("", {"A"});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(DocumentSaved, WithoutADocumentThePathsStatusIsTheResult)
{
    EXPECT_EQ(SendNotifier(kAfterSave), 0x4E4F4443);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(DocumentSaved, BareNameIsHandedOverLikeAPath)
{
    AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("Untitled-1", Usage({"A"}))));
}

TEST_F(DocumentSaved, EmptyReportIsHandedOver)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", "")));
}

TEST_F(DocumentSaved, FileOfVersion8SendsNothingHoweverOften)
{
    const std::string path = ScratchFile("a.eps", "%!PS\n%%Creator: Adobe Illustrator(R) 8.0\n");
    AddDocument(path, {"A"});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, kIsEnabled));
}

TEST_F(DocumentSaved, FileOfAnotherVersionIsHandedOver)
{
    const std::string path = ScratchFile("a.eps", "%!PS\n%%Creator: Adobe Illustrator(R) 9.0\n");
    AddDocument(path, {"A"});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, Usage({"A"}))));
}

TEST_F(DocumentSaved, StatusesOfPluginCoreAreDropped)
{
    core->statuses["PluginIsEnabled"] = 9;
    core->statuses["HandleSaveDocument"] = 9;
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}))));
}

TEST_F(DocumentSaved, RegistryStaysUntouched)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path, {"A"});
    EXPECT_EQ(SendNotifier(kAfterSaveAs, document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, Usage({"A"}))));
    EXPECT_FALSE(TouchedTheRegistry());
}

TEST_F(DocumentSaved, ExceptionOfTheScanEndsAtTheBarrier)
{
    AddDocument("/a.ai", {kNoUTF8});
    EXPECT_EQ(SendNotifier(kAfterSave), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

// Nobody sends it so; the fields are compared for the trace alone.
TEST_F(DocumentSaved, NotifierOfNoFieldTakesTheSameRoadWithoutItsTrace)
{
    AddDocument("/a.ai", {"A"});
    AINotifierMessage message = host.NotifierMessage(kChanged);
    EXPECT_EQ(HandleDocumentSavedNotifier(&message), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save("/a.ai", Usage({"A"}))));
    EXPECT_FALSE(HasTraceBeginningWith("..."));
}

}  // namespace
