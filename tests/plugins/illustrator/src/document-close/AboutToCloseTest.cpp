#include <stdexcept>

#include "CloseTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AboutToClose : public CloseTest {};

TEST_F(AboutToClose, NullMessageIsAParameterError)
{
    EXPECT_EQ(HandleDocumentAboutToCloseNotifier(nullptr), kParameterError);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(AboutToClose, StoresTheUsageOfTheCurrentDocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    Record(document, "/a.ai", 7, "old", "/t.ait");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}, {"/Art/logo.ai"}));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(AboutToClose, LeavesTheRestOfTheRecord)
{
    _t_AIDocument* const document = AddDocument("/new/name.ai", {"A"});
    Record(document, "bare name", 7, "old", "/t.ait");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "bare name");
    EXPECT_EQ(GetTimestampForDocumentHandle(document), 7);
    EXPECT_EQ(GetTemplatePathForDocumentHandle(document), "/t.ait");
}

TEST_F(AboutToClose, DocumentInTheBackgroundKeepsTheUsageOfItsLastChange)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    AddDocument("/b.ai", {"B"});
    Record(document, "/a.ai", 7, "last change");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "last change");
    EXPECT_EQ(Scans(), 0U);
}

TEST_F(AboutToClose, DisabledAsksTheHostNothing)
{
    core->enabled = false;
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, "/a.ai", 7, "old");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_EQ(Scans(), 0U);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "old");
}

TEST_F(AboutToClose, CurrentDocumentThatCannotBeHadIsNone)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, "/a.ai", 7, "old");
    host.FailCall("AIDocumentSuite.GetDocument", 1, 4711);
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "old");
}

TEST_F(AboutToClose, StatusOfTheCurrentDocumentIsNotRead)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    const auto original = DocumentSuite()->GetDocument;
    DocumentSuite()->GetDocument = [](_t_AIDocument** current) {
        *current = ScriptedHost::Current().DocumentHandle(0);
        return AIErr(4711);
    };
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    DocumentSuite()->GetDocument = original;
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), Usage({"A"}));
}

TEST_F(AboutToClose, EmptyReportReplacesTheStoredOne)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A", "HostSans-Regular"});
    Record(document, "/a.ai", 7, "old");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "");
}

TEST_F(AboutToClose, ExceptionOfTheScanEndsAtTheBarrierAndKeepsTheUsage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {kNoUTF8});
    Record(document, "/a.ai", 7, "old");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "old");
}

TEST_F(AboutToClose, DroppedInsideAnotherMessageLeavesTheUsageOfTheLastChange)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, "/a.ai", 7, "last change");
    AIErr nested = 0;
    core->onCall["HandleCreateNewDocument"] = [&] {
        nested = SendNotifier(kAboutToClose, document);
    };
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_EQ(nested, 1);
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), "last change");
}

}  // namespace
