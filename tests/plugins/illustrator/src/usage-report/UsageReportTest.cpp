#include "IllustratorUtilities.h"
#include "UsageTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class UsageReport : public UsageTest {
protected:
    UsageReport() { GiveNullForNoArt(); }
};

TEST_F(UsageReport, OneFontAndNothingPlaced)
{
    AddDocument("/a.ai", {"ExampleSerif-Bold"});
    EXPECT_EQ(CurrentDocumentFontUsage(),
              R"({"DocumentFonts":[{"PostScriptName":"ExampleSerif-Bold"}],"LinkedDocuments":[]})");
}

TEST_F(UsageReport, EmptyFrameAndNothingPlaced)
{
    AddDocument("/a.ai");
    Current().frames = {{}};
    EXPECT_EQ(CurrentDocumentFontUsage(), R"({"DocumentFonts":[],"LinkedDocuments":[]})");
}

TEST_F(UsageReport, NoTextAndOnePlacedFile)
{
    AddDocument("/a.ai", {}, {"/Art/logo.ai"});
    EXPECT_EQ(CurrentDocumentFontUsage(),
              R"({"DocumentFonts":[],"LinkedDocuments":["/Art/logo.ai"]})");
}

TEST_F(UsageReport, FontsAndFilesComeInTheirOrder)
{
    AddDocument("/a.ai", {"Z", "A", "Z"}, {"/Art/z.ai", "/Art/a.ai", "/Art/z.ai"});
    EXPECT_EQ(CurrentDocumentFontUsage(),
              Usage({"Z", "A"}, {"/Art/z.ai", "/Art/a.ai", "/Art/z.ai"}));
}

TEST_F(UsageReport, NeitherTextNorPlacedFilesIsTheEmptyText)
{
    AddDocument("/a.ai");
    EXPECT_EQ(CurrentDocumentFontUsage(), "");
}

TEST_F(UsageReport, NoDocumentIsTheEmptyText)
{
    EXPECT_EQ(CurrentDocumentFontUsage(), "");
    EXPECT_EQ(host.CountCalls("AIMatchingArtSuite"), 2U);
}

TEST_F(UsageReport, LastRunInADefaultFontAndNothingPlacedIsTheEmptyText)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"});
    EXPECT_EQ(CurrentDocumentFontUsage(), "");
    EXPECT_TRUE(HasTrace("AddNewFontNameFromTextArt() added 'A'"));
}

TEST_F(UsageReport, PlacedFileSavesTheFontsInFrontOfADefaultFont)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"}, {"/Art/logo.ai"});
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}, {"/Art/logo.ai"}));
}

TEST_F(UsageReport, FailedPlacedFileDoesNotHurtTheText)
{
    AddDocument("/a.ai", {"A"}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 1, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}, {"/Art/second.ai"}));
}

TEST_F(UsageReport, FailedPlacedFileWithoutTextIsTheEmptyText)
{
    AddDocument("/a.ai", {}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 1, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), "");
    EXPECT_TRUE(HasTrace("Placed object found: '/Art/second.ai'"));
}

TEST_F(UsageReport, LastRunInADefaultFontAndAFailedPlacedFileIsTheEmptyText)
{
    AddDocument("/a.ai", {"A", "HostSans-Regular"}, {"/Art/first.ai", "/Art/second.ai"});
    host.FailCall("AIPlacedSuite.GetPlacedFilePathFromArt", 2, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), "");
}

TEST_F(UsageReport, FailedTextMatchLeavesThePlacedFiles)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 1, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({}, {"/Art/logo.ai"}));
}

TEST_F(UsageReport, FailedPlacedMatchLeavesTheFonts)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 2, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}));
}

TEST_F(UsageReport, BothFailedIsTheEmptyText)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    host.FailCall("AIMatchingArtSuite.GetMatchingArt", 0, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), "");
}

TEST_F(UsageReport, TextEnginesFailureDoesNotLeaveTheScan)
{
    AddDocument("/a.ai", {"A", "B"}, {"/Art/logo.ai"});
    host.FailCall("ATE TextRunsIterator.Next", 1, 4711);
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}, {"/Art/logo.ai"}));
}

TEST_F(UsageReport, TextIsScannedBeforePlacedArt)
{
    AddDocument("/a.ai", {"A"}, {"/Art/logo.ai"});
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}, {"/Art/logo.ai"}));
    EXPECT_THAT(host.Calls("AIMatchingArtSuite"),
                ElementsAre("AIMatchingArtSuite.GetMatchingArt({12, 0, 0}, 1)",
                            "AIMatchingArtSuite.GetMatchingArt({7, 0, 0}, 1)"));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(UsageReport, IsMadeAnewEachTime)
{
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}));
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}));
    EXPECT_EQ(host.CountCalls("AIMatchingArtSuite"), 4U);
    SetFonts({"B"});
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"B"}));
}

TEST_F(UsageReport, LooksAtTheCurrentDocumentOnly)
{
    AddDocument("/a.ai", {"A"});
    AddDocument("/b.ai", {"B"}, {"/Art/logo.ai"});
    host.currentDocument = 0;
    EXPECT_EQ(CurrentDocumentFontUsage(), Usage({"A"}));
}

TEST_F(UsageReport, TextIsWrittenAsItIs)
{
    AddDocument("/a.ai", {"A\"B"}, {"/\xc3\xa9t\xc3\xa9/logo.ai"});
    EXPECT_EQ(CurrentDocumentFontUsage(),
              "{\"DocumentFonts\":[{\"PostScriptName\":\"A\\\"B\"}],"
              "\"LinkedDocuments\":[\"/\xc3\xa9t\xc3\xa9/logo.ai\"]}");
}

TEST_F(UsageReport, FontThatIsNoUTF8IsTheJSONLibrarysTypeError)
{
    AddDocument("/a.ai", {kNoUTF8});
    EXPECT_THROW((void)CurrentDocumentFontUsage(), json::type_error);
}

TEST_F(UsageReport, PathThatIsNoUTF8IsTheJSONLibrarysTypeError)
{
    AddDocument("/a.ai", {}, {kNoUTF8});
    EXPECT_THROW((void)CurrentDocumentFontUsage(), json::type_error);
}

}  // namespace
