#include <gmock/gmock.h>

#include <algorithm>

#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kHeader[] = "%!PS-Adobe-3.0 EPSF-3.0\n";

Document OpenEps(const std::string& comments)
{
    Limits limits;
    limits.helperSeconds = 0;  // no Ghostscript, whether it is installed or not
    const OpenResult result = OpenBytes(kHeader + comments, "made.eps", limits);
    EXPECT_TRUE(result.ok) << result.error;
    return result.document;
}

std::vector<std::string> GetFonts(const std::string& comments) { return OpenEps(comments).fonts; }

std::vector<std::string> GetFiles(const std::string& comments)
{
    return OpenEps(comments).linkedFiles;
}

std::string WithLineEnds(std::string text, const std::string& end)
{
    for (size_t start = text.find('\n'); start != std::string::npos;) {
        text.replace(start, 1, end);
        start = text.find('\n', start + end.size());
    }
    return text;
}

}  // namespace

TEST(DscReader, FontsAreRunsOfOneFrame)
{
    const OpenResult result = OpenBytes(std::string(kHeader) + "%%DocumentFonts: A B\n");
    EXPECT_EQ("A:1 B:1", DescribeFrames(result));
    EXPECT_EQ("dsc", result.document.reader);
    EXPECT_EQ(1U, result.document.stories.size());
}

TEST(DscReader, EveryLineEndIsRead)
{
    const std::string text = "%%DocumentFonts: A\n%%+ B\n%%EndComments\n%%Trailer\n";
    for (const char* end : {"\n", "\r", "\r\n"}) {
        const OpenResult result = OpenBytes(WithLineEnds(kHeader + text, end));
        EXPECT_THAT(result.document.fonts, ElementsAre("A", "B"));
    }
}

TEST(DscReader, ContinuationMayRepeatTheType)
{
    EXPECT_THAT(
        GetFonts("%%DocumentNeededResources: font A B\n%%+ font C\n%%+ D\n%%+procset p 1 0\n"
                 "%%+ q 1 0\n"),
        ElementsAre("A", "B", "C", "D"));
}

TEST(DscReader, ContinuationOfAnotherCommentIsIgnored)
{
    EXPECT_THAT(GetFonts("%%DocumentFonts: A\n%%Title: x\n%%+ B\n"), ElementsAre("A"));
}

TEST(DscReader, ListsMayBeAtTheEnd)
{
    for (const char* atEnd : {"(atend)", "atend"}) {
        EXPECT_THAT(GetFonts(std::string("%%DocumentFonts: ") + atEnd +
                             "\n%%EndComments\n0 0 moveto\n%%Trailer\n%%DocumentFonts: A\n%%+ B\n"),
                    ElementsAre("A", "B"));
    }
}

TEST(DscReader, NamesMayBePostScriptStrings)
{
    EXPECT_THAT(GetFonts("%%DocumentFonts: (My Font) A (B\\)c)\n%%+ (font)\n"),
                ElementsAre("My Font", "A", "B)c", "font"));
}

TEST(DscReader, EveryListIsReadAndEachFontOnce)
{
    EXPECT_THAT(GetFonts("%%DocumentFonts: A\n%%DocumentNeededFonts: B A\n"
                         "%%DocumentSuppliedFonts: C\n%%DocumentSuppliedResources: font D\n"
                         "%%PageFonts: E\n%%PageResources: font F\n%%IncludeFont: G\n"
                         "%%IncludeResource: font H\n"),
                ElementsAre("A", "B", "C", "D", "E", "F", "G", "H"));
}

TEST(DscReader, EmbeddedFontsAreReadOnlyWithoutAList)
{
    const std::string carried = "%%BeginFont: X Printer 1.0\n%%BeginResource: font Y\n";
    EXPECT_THAT(GetFonts(carried), ElementsAre("X", "Y"));
    EXPECT_THAT(GetFonts("%%DocumentFonts: A\n" + carried), ElementsAre("A"));
}

TEST(DscReader, SubsetPrefixAndSlashAreRemoved)
{
    EXPECT_THAT(GetFonts("%%DocumentFonts: ABCDEF+A /B\n"), ElementsAre("A", "B"));
}

TEST(DscReader, NamesAreValidUtf8)
{
    EXPECT_THAT(GetFonts("%%DocumentFonts: A\xFF\n"), ElementsAre("A\uFFFD"));
}

TEST(DscReader, DataIsSkippedByCount)
{
    EXPECT_THAT(GetFonts("%%BeginData: 21 Hex Bytes\n%%DocumentFonts: No1\n%%EndData\n"
                         "%%BeginBinary: 21\n%%DocumentFonts: No2\n%%EndBinary\n"
                         "%%DocumentFonts: A\n"),
                ElementsAre("A"));
}

TEST(DscReader, DataIsSkippedByLines)
{
    EXPECT_THAT(GetFonts("%%BeginData: 2 ASCII Lines\n%%DocumentFonts: No\n%%EndData\n%%EndData\n"
                         "%%DocumentFonts: A\n"),
                ElementsAre("A"));
}

TEST(DscReader, WrongCountFallsBackToTheEndMark)
{
    EXPECT_THAT(GetFonts("%%BeginData: 4000\nxyz\n%%EndData\n%%DocumentFonts: A\n"),
                ElementsAre("A"));
}

TEST(DscReader, DataWithoutAnEndIsNoted)
{
    const Document document =
        OpenEps("%%DocumentFonts: A\n%%BeginData: 99999999999999\n%%DocumentFonts: No\n");
    EXPECT_THAT(document.fonts, ElementsAre("A"));
    EXPECT_THAT(document.notes, ElementsAre("cut off within its data"));
}

TEST(DscReader, NestedDocumentsAreSkipped)
{
    EXPECT_THAT(GetFonts("%%BeginDocument: a.eps\n%%DocumentFonts: No\n%%BeginDocument: b.eps\n"
                         "%%EndDocument\n%%DocumentFonts: No\n%%EndDocument\n%%EndDocument\n"
                         "%%DocumentFonts: A\n"),
                ElementsAre("A"));
}

TEST(DscReader, ListedFilesAreRead)
{
    EXPECT_THAT(GetFiles("%%DocumentFiles:/a b.eps\n%%+/c.eps\n%%+ (d e.eps)\n"),
                ElementsAre("/a b.eps", "/c.eps", "d e.eps"));
}

TEST(DscReader, SuppliedResourcesAreNoPlacedFiles)
{
    EXPECT_THAT(GetFiles("%%DocumentSuppliedResources: procset a 1.0 0\n%%+ file b.prc 1.0 0\n"
                         "%%DocumentResources: file c 1 0\n%%PageResources: file d\n"
                         "%%BeginResource: file b.prc 1.0 0\n%%EndResource\n"
                         "%%DocumentNeededResources: file e.eps\n%%DocumentFiles: f.eps\n"),
                ElementsAre("e.eps", "f.eps"));
}

TEST(DscReader, IncludedFilesComeBeforeTheRestOfTheList)
{
    EXPECT_THAT(GetFiles("%%DocumentFiles:a\n%%+b\n%%IncludeFile:b\n%%IncludeFile: c\n"
                         "%%IncludeFile:b\n"),
                ElementsAre("b", "c", "b", "a"));
}

TEST(DscReader, ListWithoutFontsIsNoAnswer)
{
    for (const char* list :
         {"%%DocumentFonts:\n", "%%DocumentFonts:\n%%DocumentFiles:\n%%+ a\n",
          "%%DocumentNeededResources: procset a 1.0 0\n%%+ b 1.0 0\n%%+ encoding c\n",
          "%%Creator: Adobe Illustrator(R) 8.0\n%%DocumentFonts: \n"}) {
        const Document document = OpenEps(list);
        EXPECT_THAT(document.frames, IsEmpty()) << list;
        EXPECT_THAT(document.notes, ElementsAre("its comments name no font")) << list;
    }
}

TEST(DscReader, SuppliedFontsAreNotAllFonts)
{
    for (const char* list :
         {"%%DocumentSuppliedFonts: A\n", "%%DocumentSuppliedResources: font A\n",
          "%%DocumentNeededFonts:\n%%DocumentSuppliedFonts: ABCDEF+A\n", "%%BeginFont: A\n",
          "%%BeginResource: font A\n%%EndResource\n"}) {
        const Document document = OpenEps(list);
        EXPECT_THAT(document.fonts, ElementsAre("A")) << list;
        EXPECT_THAT(document.notes,
                    ElementsAre("its comments name only the fonts that it contains"))
            << list;
    }
    EXPECT_THAT(OpenEps("%%DocumentNeededFonts: B\n%%DocumentSuppliedFonts: A\n").notes, IsEmpty());
}

TEST(DscReader, CommentsInsideFontsAndResourcesAreNotTheDocuments)
{
    const std::string inside = "%%DocumentFonts: No\n%%IncludeFile: No\n%%Creator: No\n";
    const Document document =
        OpenEps("%%BeginFont: X\n" + inside + "%%BeginResource: font No\n" + inside +
                "%%EndResource\n%%BeginFont: No\n%%EndFont\n" + inside + "%%EndFont\n" +
                "%%BeginResource: procset p 1.0 0\n%%BeginData: 12 Hex Bytes\n%%EndResource\n" +
                "%%EndData\n" + inside + "%%EndResource\n%%BeginProcSet: q 1 0\n" + inside +
                "%%EndProcSet\n%%DocumentNeededFonts: A\n%%IncludeFile: b\n%%Creator: C\n");
    EXPECT_THAT(document.fonts, ElementsAre("A"));
    EXPECT_THAT(document.linkedFiles, ElementsAre("b"));
    EXPECT_EQ("C", document.creator);
}

TEST(DscReader, FontWithoutAnEndHidesNothing)
{
    EXPECT_THAT(GetFonts("%%BeginFont: X\n%%DocumentFonts: A\n%%BeginFont: Y\n"
                         "%%DocumentFonts: No\n%%EndFont\n%%DocumentFonts: B\n"),
                ElementsAre("A", "B"));
}

TEST(DscReader, FontsWithoutANameAreIgnored)
{
    EXPECT_THAT(GetFonts("%%DocumentSuppliedFonts: PDF Font obj_18 A (PDF Font obj_19)\n"
                         "%%DocumentSuppliedResources: font PDF Font obj_20\n%%+ font B\n"
                         "%%BeginFont: PDF Font obj_18\n%%EndFont\n"),
                ElementsAre("A", "B"));
    EXPECT_THAT(GetFonts("%%BeginFont: PDF Font obj_18\n%%EndFont\n"), IsEmpty());
}

TEST(DscReader, FirstCreatorIsRead)
{
    EXPECT_EQ("Drawer 8", OpenEps("%%Creator: (Drawer 8)\n%%Creator: Other\n").creator);
}

TEST(DscReader, CreatorAndFirstLineDetermineTheKind)
{
    const std::string creator = "%%Creator: Adobe Illustrator(R) 8.0\n";
    EXPECT_EQ(Kind::kEPS, OpenEps(creator).kind);
    EXPECT_EQ(Kind::kIllustrator, OpenBytes("%!PS-Adobe-3.0\r" + creator).document.kind);
    EXPECT_EQ(Kind::kEPS, OpenBytes("%!PS-Adobe-3.0\n%%Creator: Drawer\n").document.kind);
}
