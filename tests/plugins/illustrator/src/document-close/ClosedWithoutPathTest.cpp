#include "CloseTest.h"

using ::testing::ElementsAre;

namespace {

// A document that began as a new one: the registry never learns a path of it.
class ClosedWithoutPath : public CloseTest {
protected:
    // The current document's report has this length.
    void SetUsageOfLength(std::size_t length)
    {
        usage = Usage({}, {"/" + std::string(length - Usage({}, {"/"}).size(), 'x')});
        ASSERT_EQ(usage.size(), length);
        AddDocument("/other.ai", {}, {"/" + std::string(length - Usage({}, {"/"}).size(), 'x')});
    }
    static constexpr std::size_t kMostBytes = 32767;

    std::string usage;
};

TEST_F(ClosedWithoutPath, ActivatesTheUsageOfTheDocumentThatIsCurrentThen)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    AddDocument("/other.ai", {"B"}, {"/Art/logo.ai"});
    Record(document, "", 0, Usage({"A"}));
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"B"}, {"/Art/logo.ai"}))));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedWithoutPath, SavedOrNotMakesNoDifference)
{
    _t_AIDocument* const document = AddDocument(ScratchFile("saved.ai", "x"), {"A"});
    Record(document, "", 0, Usage({"A"}));
    EXPECT_EQ(SendClosed(document, 0), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"A"}))));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), ::testing::IsEmpty());
}

TEST_F(ClosedWithoutPath, EmptyReportActivatesNothing)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    Record(document, "", 0, Usage({"A"}));
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedWithoutPath, UnknownHandleTakesTheSameRoadAndItsBlankRecordGoes)
{
    AddDocument("/other.ai", {"B"});
    _t_AIDocument* const unknown = host.DocumentHandle(3);
    EXPECT_EQ(SendClosed(unknown, 0), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"B"}))));
    EXPECT_EQ(CountTraces(Erased(unknown)), 1U);
}

TEST_F(ClosedWithoutPath, StatusOfTheActivationIsDropped)
{
    core->statuses["ActivateChosenFonts"] = 9;
    AddDocument("/other.ai", {"B"});
    EXPECT_EQ(SendClosed(host.DocumentHandle(3), 0), 0);
    EXPECT_TRUE(HasTrace(Erased(host.DocumentHandle(3))));
}

TEST_F(ClosedWithoutPath, TemplateIsClosedWithThatUsage)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    AddDocument("/other.ai", {"B"});
    Record(document, "", 0, Usage({"A"}), "/t.ait");
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Activate("", Usage({"B"})), Close("/t.ait", Usage({"B"}))));
}

TEST_F(ClosedWithoutPath, UsageOfTheBuffersSizeIsPassedWhole)
{
    SetUsageOfLength(kMostBytes);
    EXPECT_EQ(SendClosed(host.DocumentHandle(3), 0), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", usage)));
}

TEST_F(ClosedWithoutPath, UsageOfOneByteLessIsPassedWhole)
{
    SetUsageOfLength(kMostBytes - 1);
    EXPECT_EQ(SendClosed(host.DocumentHandle(3), 0), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", usage)));
}

TEST_F(ClosedWithoutPath, LongerUsageIsCut)
{
    for (const std::size_t length : {kMostBytes + 1, kMostBytes * 3}) {
        SetUsageOfLength(length);
        EXPECT_EQ(SendClosed(host.DocumentHandle(3), host.currentDocument), 0);
        EXPECT_THAT(core->calls,
                    ElementsAre(kIsEnabled, Activate("", usage.substr(0, kMostBytes))));
    }
}

TEST_F(ClosedWithoutPath, TemplateIsClosedWithTheUsageUncut)
{
    SetUsageOfLength(kMostBytes + 100);
    Record(host.DocumentHandle(3), "", 0, "", "/t.ait");
    EXPECT_EQ(SendClosed(host.DocumentHandle(3), 0), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", usage.substr(0, kMostBytes)),
                                         Close("/t.ait", usage)));
}

TEST_F(ClosedWithoutPath, ExceptionOfTheScanEndsAtTheBarrierAndTheRecordStays)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    AddDocument("/other.ai", {kNoUTF8});
    Record(document, "", 0, kStored, "/t.ait");
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_FALSE(HasTrace(Erased(document)));
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), kStored);
    EXPECT_EQ(GetTemplatePathForDocumentHandle(document), "/t.ait");
}

TEST_F(ClosedWithoutPath, DisabledIsNotScanned)
{
    core->enabled = false;
    AddDocument("/other.ai", {"B"});
    EXPECT_EQ(SendClosed(host.DocumentHandle(3), 0), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_EQ(Scans(), 0U);
}

}  // namespace
