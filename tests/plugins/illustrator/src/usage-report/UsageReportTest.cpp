#include "IllustratorUtilities.h"
#include "UsageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class UsageReport : public UsageFixture {
protected:
    UsageReport() { GiveNullForNoArt(); }
};

TEST_F(UsageReport, ReportsOneFontWithoutPlacedFiles)
{
    AddDocument("/a.ai", {"ExampleSerif-Bold"});
    EXPECT_EQ(R"({"DocumentFonts":[{"PostScriptName":"ExampleSerif-Bold"}],"LinkedDocuments":[]})",
              CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ReportsAnEmptyFrameWithoutPlacedFiles)
{
    AddDocument("/a.ai");
    Current().frames = {{}};
    EXPECT_EQ(R"({"DocumentFonts":[],"LinkedDocuments":[]})", CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ReportsAPlacedFileWithoutText)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    EXPECT_EQ(R"({"DocumentFonts":[],"LinkedDocuments":["/Art/logo.ai"]})",
              CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ListsFontsAndFilesInTheirOrder)
{
    AddDocument("/a.ai", {"Z", "A", "Z"}, {"/Art/z.ai", "/Art/a.ai", "/Art/z.ai"});
    EXPECT_EQ(Usage({"Z", "A"}, {"/Art/z.ai", "/Art/a.ai", "/Art/z.ai"}),
              CurrentDocumentFontUsage());
}

TEST_F(UsageReport, IsEmptyWithoutTextAndPlacedFiles)
{
    AddDocument("/a.ai");
    EXPECT_EQ("", CurrentDocumentFontUsage());
}

TEST_F(UsageReport, IsEmptyWithoutADocument)
{
    EXPECT_EQ("", CurrentDocumentFontUsage());
    EXPECT_EQ(2U, host.CountCalls("AIMatchingArtSuite"));
}

TEST_F(UsageReport, IsEmptyIfTheLastRunIsInADefaultFontWithoutPlacedFiles)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"});
    EXPECT_EQ("", CurrentDocumentFontUsage());
    EXPECT_TRUE(HasTrace("AddNewFontNameFromTextArt() added 'A'"));
}

TEST_F(UsageReport, ReportsTheFontsBeforeADefaultFontWithAPlacedFile)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"}, {"/Art/logo.ai"});
    EXPECT_EQ(Usage({"A"}, {"/Art/logo.ai"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ReportsTheFontsIfAPlacedFileFails)
{
    AddDocument("/a.ai", {"A"}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 1, 4711);
    EXPECT_EQ(Usage({"A"}, {"/Art/second.ai"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, IsEmptyIfAPlacedFileFailsWithoutText)
{
    AddDocument("/a.ai", {}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 1, 4711);
    EXPECT_EQ("", CurrentDocumentFontUsage());
    EXPECT_TRUE(HasTrace("Placed object found: '/Art/second.ai'"));
}

TEST_F(UsageReport, IsEmptyIfTheLastRunIsInADefaultFontAndAPlacedFileFails)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 2, 4711);
    EXPECT_EQ("", CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ReportsThePlacedFilesIfTheSearchForTextFails)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 1, 4711);
    EXPECT_EQ(Usage({}, {"/Art/logo.ai"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ReportsTheFontsIfTheSearchForPlacedArtFails)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 2, 4711);
    EXPECT_EQ(Usage({"A"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, IsEmptyIfBothSearchesFail)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 0, 4711);
    EXPECT_EQ("", CurrentDocumentFontUsage());
}

TEST_F(UsageReport, CatchesAFailureOfTheTextEngine)
{
    AddDocument("/a.ai", {"A", "B"}, {"/Art/logo.ai"});
    host.FailCall("ATE TextRunsIterator.Next", 1, 4711);
    EXPECT_EQ(Usage({"A"}, {"/Art/logo.ai"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ScansTextBeforePlacedArt)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    EXPECT_EQ(Usage({"A"}, {"/Art/logo.ai"}), CurrentDocumentFontUsage());
    EXPECT_THAT(host.Calls("AIMatchingArtSuite"),
                ElementsAre("AIMatchingArtSuite.GetMatchingArt({12, 0, 0}, 1)",
                            "AIMatchingArtSuite.GetMatchingArt({7, 0, 0}, 1)"));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(UsageReport, IsNotCached)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(Usage({"A"}), CurrentDocumentFontUsage());
    EXPECT_EQ(Usage({"A"}), CurrentDocumentFontUsage());
    EXPECT_EQ(4U, host.CountCalls("AIMatchingArtSuite"));
    SetFonts({"B"});
    EXPECT_EQ(Usage({"B"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ReportsOnlyTheCurrentDocument)
{
    AddDocument("/a.ai", {"A"});
    AddDocument("/b.ai", {"B"}, {"/Art/logo.ai"});
    host.currentDocument = 0;
    EXPECT_EQ(Usage({"A"}), CurrentDocumentFontUsage());
}

TEST_F(UsageReport, WritesUTF8AndEscapesQuotes)
{
    AddDocument("/a.ai", {"A\"B"}, {"/\xc3\xa9t\xc3\xa9/logo.ai"});
    EXPECT_EQ(
        "{\"DocumentFonts\":[{\"PostScriptName\":\"A\\\"B\"}],"
        "\"LinkedDocuments\":[\"/\xc3\xa9t\xc3\xa9/logo.ai\"]}",
        CurrentDocumentFontUsage());
}

TEST_F(UsageReport, ThrowsTheJsonTypeErrorForAFontThatIsNotUTF8)
{
    AddDocument("/a.ai", {kNoUTF8});
    EXPECT_THROW((void)CurrentDocumentFontUsage(), json::type_error);
}

TEST_F(UsageReport, ThrowsTheJsonTypeErrorForAPathThatIsNotUTF8)
{
    AddDocument("/a.ai", {}, {kNoUTF8});
    EXPECT_THROW((void)CurrentDocumentFontUsage(), json::type_error);
}

}  // namespace
