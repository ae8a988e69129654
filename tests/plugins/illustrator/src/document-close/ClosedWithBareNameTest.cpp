#include "CloseFixture.h"

using ::testing::ElementsAre;

namespace {

// Closes a document whose record has a name without a folder: it had no file at its last message.
class ClosedWithBareName : public CloseFixture {
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

TEST_F(ClosedWithBareName, KeepsTheNameWithoutACurrentDocument)
{
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("Untitled-1", "")));
    EXPECT_EQ(1U, host.CountCalls("AIDocumentSuite.GetDocumentFileSpecification"));
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
}

TEST_F(ClosedWithBareName, KeepsTheNameIfTheHostHasNoPath)
{
    AddDocument(ScratchFile("other.ai", "x"), {"B"});
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("Untitled-1", "")));
}

// By now another document is current. Its path is used all the same, and since the record has no
// timestamp, its file is newer.
TEST_F(ClosedWithBareName, StoresAndUsesThePathOfAnotherDocument)
{
    const std::string path = ScratchFile("other.ai", "x");
    AddDocument(path, {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, kStored), Close(path, kStored)));
    EXPECT_TRUE(HasTrace(Stored(path)));
    EXPECT_LT(IndexOf(Stored(path)), IndexOf(Erased(document)));
}

TEST_F(ClosedWithBareName, StoresAPathWithoutAFileAndDoesNotSave)
{
    AddDocument("/not/there.ai", {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("/not/there.ai", "")));
    EXPECT_TRUE(HasTrace(Stored("/not/there.ai")));
}

TEST_F(ClosedWithBareName, AcceptsAPathWithBackslashes)
{
    AddDocument("C:\\other.ai", {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("C:\\other.ai", "")));
    EXPECT_TRUE(HasTrace(Stored("C:\\other.ai")));
}

TEST_F(ClosedWithBareName, UsesAnotherBareNameWithoutStoringIt)
{
    AddDocument("Untitled-2", {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("Untitled-2", "")));
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
}

TEST_F(ClosedWithBareName, ReportsNothingForAnEmptyPath)
{
    AddDocument("", {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedWithBareName, ComparesWithTheTimestampOfTheRecord)
{
    const std::string path = ScratchFile("other.ai", "x");
    AddDocument(path, {"B"});
    Record(document, "Untitled-1", ModificationTime(path), kStored);
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(ClosedWithBareName, UnreadablePathEndsAtTheBarrier)
{
    AddDocument("/other.ai", {"B"});
    host.FailCall("AIFilePathSuite.GetFullPath", 1, 4711);
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_EQ(kStored, GetFontUsageForDocumentHandle(document));
}

}  // namespace
