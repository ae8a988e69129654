#include <stdexcept>

#include "CloseFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AboutToClose : public CloseFixture {};

TEST_F(AboutToClose, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleDocumentAboutToCloseNotifier(nullptr));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(AboutToClose, StoresTheUsageOfTheCurrentDocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    Record(document, "/a.ai", 7, "old", "/t.ait");
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(Usage({"A"}, {"/Art/logo.ai"}), GetFontUsageForDocumentHandle(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
}

TEST_F(AboutToClose, KeepsTheRestOfTheRecord)
{
    _t_AIDocument* const document = AddDocument("/new/name.ai", {"A"});
    Record(document, "bare name", 7, "old", "/t.ait");
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ("bare name", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(7, GetTimestampForDocumentHandle(document));
    EXPECT_EQ("/t.ait", GetTemplatePathForDocumentHandle(document));
}

TEST_F(AboutToClose, KeepsTheUsageOfADocumentInTheBackground)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    AddDocument("/b.ai", {"B"});
    Record(document, "/a.ai", 7, "last change");
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ("last change", GetFontUsageForDocumentHandle(document));
    EXPECT_EQ(0U, Scans());
}

TEST_F(AboutToClose, DoesNotAskTheHostIfDisabled)
{
    core->enabled = false;
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, "/a.ai", 7, "old");
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_EQ(0U, Scans());
    EXPECT_EQ("old", GetFontUsageForDocumentHandle(document));
}

TEST_F(AboutToClose, TreatsAFailureToGetTheDocumentAsNoDocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, "/a.ai", 7, "old");
    host.FailCall("AIDocumentSuite.GetDocument", 1, 4711);
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ("old", GetFontUsageForDocumentHandle(document));
}

TEST_F(AboutToClose, IgnoresTheStatusIfThereIsADocument)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    const auto original = DocumentSuite()->GetDocument;
    DocumentSuite()->GetDocument = [](_t_AIDocument** current) {
        *current = ScriptedHost::Current().DocumentHandle(0);
        return AIErr(4711);
    };
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    DocumentSuite()->GetDocument = original;
    EXPECT_EQ(Usage({"A"}), GetFontUsageForDocumentHandle(document));
}

TEST_F(AboutToClose, EmptyReportReplacesTheStoredOne)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A", "HostSans-Regular"});
    Record(document, "/a.ai", 7, "old");
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ("", GetFontUsageForDocumentHandle(document));
}

TEST_F(AboutToClose, ExceptionOfTheScanKeepsTheStoredUsage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {kNoUTF8});
    Record(document, "/a.ai", 7, "old");
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ("old", GetFontUsageForDocumentHandle(document));
}

TEST_F(AboutToClose, KeepsTheUsageIfRefusedInsideAnotherMessage)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, "/a.ai", 7, "last change");
    AIErr nested = 0;
    core->onCall["HandleCreateNewDocument"] = [&] {
        nested = SendNotifier(kAboutToClose, document);
    };
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_EQ(1, nested);
    EXPECT_EQ("last change", GetFontUsageForDocumentHandle(document));
}

}  // namespace
