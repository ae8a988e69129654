#include "CloseFixture.h"

using ::testing::ElementsAre;

namespace {

// Closes a document that was created as a new one: the registry never gets a path for it.
class ClosedWithoutPath : public CloseFixture {
protected:
    // Adds a document, as the current one, whose usage report has this length.
    void SetUsageOfLength(std::size_t length)
    {
        usage = Usage({}, {"/" + std::string(length - Usage({}, {"/"}).size(), 'x')});
        ASSERT_EQ(length, usage.size());
        AddDocument("/other.ai", {}, {"/" + std::string(length - Usage({}, {"/"}).size(), 'x')});
    }
    static constexpr std::size_t kMostBytes = 32767;

    std::string usage;
};

TEST_F(ClosedWithoutPath, ActivatesTheUsageOfTheDocumentThatIsNowCurrent)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    AddDocument("/other.ai", {"B"}, {"/Art/logo.ai"});
    Record(document, "", 0, Usage({"A"}));
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"B"}, {"/Art/logo.ai"}))));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedWithoutPath, TreatsASavedDocumentLikeAnUnsavedOne)
{
    _t_AIDocument* const document = AddDocument(ScratchFile("saved.ai", "x"), {"A"});
    Record(document, "", 0, Usage({"A"}));
    EXPECT_EQ(0, SendClosed(document, 0));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"A"}))));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), ::testing::IsEmpty());
}

TEST_F(ClosedWithoutPath, ActivatesNothingForAnEmptyReport)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    Record(document, "", 0, Usage({"A"}));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedWithoutPath, TreatsAnUnknownHandleLikeANewDocument)
{
    AddDocument("/other.ai", {"B"});
    _t_AIDocument* const unknown = host.DocumentHandle(3);
    EXPECT_EQ(0, SendClosed(unknown, 0));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"B"}))));
    EXPECT_EQ(1U, CountTraces(Erased(unknown)));
}

TEST_F(ClosedWithoutPath, IgnoresTheStatusOfTheActivation)
{
    core->statuses["ActivateChosenFonts"] = 9;
    AddDocument("/other.ai", {"B"});
    EXPECT_EQ(0, SendClosed(host.DocumentHandle(3), 0));
    EXPECT_TRUE(HasTrace(Erased(host.DocumentHandle(3))));
}

TEST_F(ClosedWithoutPath, ClosesTheTemplateWithTheSameUsage)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    AddDocument("/other.ai", {"B"});
    Record(document, "", 0, Usage({"A"}), "/t.ait");
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Activate("", Usage({"B"})), Close("/t.ait", Usage({"B"}))));
}

TEST_F(ClosedWithoutPath, PassesAUsageThatFillsTheBuffer)
{
    SetUsageOfLength(kMostBytes);
    EXPECT_EQ(0, SendClosed(host.DocumentHandle(3), 0));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", usage)));
}

TEST_F(ClosedWithoutPath, PassesAUsageOfOneByteLess)
{
    SetUsageOfLength(kMostBytes - 1);
    EXPECT_EQ(0, SendClosed(host.DocumentHandle(3), 0));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", usage)));
}

TEST_F(ClosedWithoutPath, CutsALongerUsage)
{
    for (const std::size_t length : {kMostBytes + 1, kMostBytes * 3}) {
        SetUsageOfLength(length);
        EXPECT_EQ(0, SendClosed(host.DocumentHandle(3), host.currentDocument));
        EXPECT_THAT(core->calls,
                    ElementsAre(kIsEnabled, Activate("", usage.substr(0, kMostBytes))));
    }
}

TEST_F(ClosedWithoutPath, ClosesTheTemplateWithTheFullUsage)
{
    SetUsageOfLength(kMostBytes + 100);
    Record(host.DocumentHandle(3), "", 0, "", "/t.ait");
    EXPECT_EQ(0, SendClosed(host.DocumentHandle(3), 0));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", usage.substr(0, kMostBytes)),
                                         Close("/t.ait", usage)));
}

TEST_F(ClosedWithoutPath, ExceptionOfTheScanKeepsTheRecord)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    AddDocument("/other.ai", {kNoUTF8});
    Record(document, "", 0, kStored, "/t.ait");
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_FALSE(HasTrace(Erased(document)));
    EXPECT_EQ(kStored, GetFontUsageForDocumentHandle(document));
    EXPECT_EQ("/t.ait", GetTemplatePathForDocumentHandle(document));
}

TEST_F(ClosedWithoutPath, DoesNotScanIfDisabled)
{
    core->enabled = false;
    AddDocument("/other.ai", {"B"});
    EXPECT_EQ(0, SendClosed(host.DocumentHandle(3), 0));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_EQ(0U, Scans());
}

}  // namespace
