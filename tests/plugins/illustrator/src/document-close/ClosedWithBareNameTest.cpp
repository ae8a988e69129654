#include "CloseTest.h"

using ::testing::ElementsAre;

namespace {

// A document whose record holds a name without a folder: it had no file when last seen.
class ClosedWithBareName : public CloseTest {
protected:
    ClosedWithBareName() : document(AddDocument("Untitled-1", {"A"}))
    {
        Record(document, "Untitled-1", 0, kStored);
    }
    std::string Stored(const std::string& path) const
    {
        return "Entering SetFilePathForDocumentHandle(" + HandleText(document) + ", '" + path +
               "')";
    }

    _t_AIDocument* const document;
};

TEST_F(ClosedWithBareName, WithoutACurrentDocumentTheNameStays)
{
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("Untitled-1", "")));
    EXPECT_EQ(host.CountCalls("AIDocumentSuite.GetDocumentFileSpecification"), 1U);
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
}

TEST_F(ClosedWithBareName, FailedPathLeavesTheName)
{
    AddDocument(ScratchFile("other.ai", "x"), {"B"});
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("Untitled-1", "")));
}

// The document that is current by now is another one; its path is taken all the same, and since the
// record has no time, its file counts as newer.
TEST_F(ClosedWithBareName, PathOfAnotherDocumentIsStoredAndUsed)
{
    const std::string path = ScratchFile("other.ai", "x");
    AddDocument(path, {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, kStored), Close(path, kStored)));
    EXPECT_TRUE(HasTrace(Stored(path)));
    EXPECT_LT(PlaceOf(Stored(path)), PlaceOf(Erased(document)));
}

TEST_F(ClosedWithBareName, PathWithoutAFileIsStoredAndNotNewer)
{
    AddDocument("/not/there.ai", {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("/not/there.ai", "")));
    EXPECT_TRUE(HasTrace(Stored("/not/there.ai")));
}

TEST_F(ClosedWithBareName, PathWithBackslashesIsAPath)
{
    AddDocument("C:\\other.ai", {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("C:\\other.ai", "")));
    EXPECT_TRUE(HasTrace(Stored("C:\\other.ai")));
}

TEST_F(ClosedWithBareName, AnotherBareNameIsUsedAndNotStored)
{
    AddDocument("Untitled-2", {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("Untitled-2", "")));
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
}

TEST_F(ClosedWithBareName, EmptyPathTellsNothing)
{
    AddDocument("", {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedWithBareName, TimeOfTheRecordStillCounts)
{
    const std::string path = ScratchFile("other.ai", "x");
    AddDocument(path, {"B"});
    Record(document, "Untitled-1", ModificationTime(path), kStored);
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(ClosedWithBareName, PathThatTheHostCannotGiveAsTextEndsAtTheBarrier)
{
    AddDocument("/other.ai", {"B"});
    host.FailCall("AIFilePathSuite.GetFullPath", 1, 4711);
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_EQ(GetFontUsageForDocumentHandle(document), kStored);
}

}  // namespace
