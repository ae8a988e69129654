#include <gmock/gmock.h>

#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string DescribeObjects(const std::string& lines)
{
    return DescribeFrames(OpenNative(NativeMaker().AddLines(lines)));
}

std::vector<std::string> GetLinks(const std::string& lines)
{
    return OpenNative(NativeMaker().AddLines(lines)).document.linkedFiles;
}

}  // namespace

TEST(NativeObjects, StringsOfAnObjectAreItsRuns)
{
    EXPECT_EQ(
        "Courier:3 Times-Bold:5",
        DescribeObjects("0 To\n/_Courier 11 8.8 -2.7 Tf\n(abc) Tx 1 0 Tk\n"
                        "/_Times-Bold 9 8 -2 Tf\n(de) Tx 0 -55 Tk \n(fgh) Tx \n(\\r) TX \nTO"));
}

TEST(NativeObjects, FontRemainsSetInTheNextObject)
{
    EXPECT_EQ("Courier:1 | Courier:2",
              DescribeObjects("0 To\n/_Courier 11 8.8 -2.7 Tf\n(A) Tx \n(\\r) Tx \nTO\n"
                              "1 To\n(bc) Tx\nTO"));
}

TEST(NativeObjects, AliasOfAFontIsResolved)
{
    EXPECT_EQ("Symbol:1 | Ryumin-Light:1",
              DescribeObjects("[161/degree 240/apple\n/_Symbol_/Symbol 0 0 0 TZ\n"
                              "[/_Ryumin-Light-83pv-RKSJ-H/Ryumin-Light 0 0 1 TZ\n"
                              "0 To\n/_Symbol_ 11 8.8 -2.7 Tf\n(A) Tx\nTO\n"
                              "0 To\n/_Ryumin-Light-83pv-RKSJ-H 11 8.8 -2.7 Tf\n(A) Tx\nTO"));
}

TEST(NativeObjects, ObjectWithAReturnAloneIsEmpty)
{
    EXPECT_EQ("", DescribeObjects("0 To\n/_Courier 11 8.8 -2.7 Tf\n(\\r) TX\nTO"));
}

TEST(NativeObjects, StringsOutsideObjectsAreIgnored)
{
    EXPECT_EQ("", DescribeObjects("/_Courier 11 8.8 -2.7 Tf\n(abc) Tx\n"));
}

TEST(NativeObjects, EscapesAndParenthesesAreDecoded)
{
    EXPECT_EQ("Courier:6",
              DescribeObjects("0 To\n/_Courier 11 8 -2 Tf\n(a\\(\\)(b)) Tx\n(\\r) Tx\nTO"));
}

TEST(NativeObjects, StringMaySpanTwoLines)
{
    EXPECT_EQ("Courier:5", DescribeObjects("0 To\n/_Courier 11 8 -2 Tf\n(abc\\\nde) Tx\nTO"));
}

TEST(NativeObjects, StyledObjectIsReadOnce)
{
    EXPECT_EQ("Courier:3", DescribeObjects("0 To\n/_Courier 11 8 -2 Tf\n(abc) Tx\nTO\n"
                                           "%_0 To\n%_/_Courier 11 8 -2 Tf\n%_(abc) Tx\n%_TO"));
}

TEST(NativeObjects, ObjectInCommentsIsReadIfItHasNoCopy)
{
    EXPECT_EQ("Times-Bold:3",
              DescribeObjects("%_0 To\n%_/_Times-Bold 11 8 -2 Tf\n%_(abc) Tx\n%_TO"));
}

TEST(NativeObjects, FileOfVersionEightIsRead)
{
    const std::string file = NativeMaker()
                                 .SetCreator("Adobe Illustrator(R) 8.0")
                                 .AddHeader("%%DocumentFonts: Listed-Only")
                                 .AddLines("0 To\n/_Courier 11 8 -2 Tf\n(abc) Tx\n(\\r) TX\nTO")
                                 .MakeText();
    const OpenResult result = OpenBytes(file, "old.ai");
    EXPECT_EQ("native", result.document.reader);
    EXPECT_EQ(Kind::kIllustrator, result.document.kind);
    EXPECT_EQ("Courier:3", DescribeFrames(result));
}

TEST(NativeObjects, FileOfVersionEightWithoutTextIsReadByItsComments)
{
    const OpenResult result =
        OpenBytes(NativeMaker().AddHeader("%%DocumentFonts: Listed-Only").MakeText(), "old.ai");
    EXPECT_EQ("dsc", result.document.reader);
    EXPECT_THAT(result.document.fonts, ElementsAre("Listed-Only"));
}

TEST(NativeObjects, FileOfVersionEightWithoutTextAndFontsHasNone)
{
    const OpenResult result =
        OpenBytes(NativeMaker().AddHeader("%%DocumentFonts:").MakeText(), "old.ai");
    EXPECT_EQ("native ", result.document.reader + " " + DescribeFrames(result));
    EXPECT_THAT(result.document.notes, IsEmpty());
}

TEST(NativeObjects, RasterDataIsSkipped)
{
    const std::string data = "XI\n0 To\n/_Courier 1 1 1 Tf\n(no) Tx\nTO\n";
    EXPECT_EQ("Times-Bold:3",
              DescribeObjects("%%BeginData: " + std::to_string(data.size()) + "\n" + data +
                              "%%EndData\n0 To\n/_Times-Bold 11 8 -2 Tf\n(abc) Tx\nTO"));
}

TEST(NativeObjects, RasterDataWithAWrongCountIsSkipped)
{
    EXPECT_EQ("Times-Bold:3", DescribeObjects("%%BeginData: 99999\nXI\n0 To\n%%EndData\n"
                                              "0 To\n/_Times-Bold 11 8 -2 Tf\n(abc) Tx\nTO"));
}

TEST(NativePlaced, FilesAreReadWithRepeats)
{
    EXPECT_THAT(GetLinks("%%IncludeFile:/Art/a.eps\n`(/Art/a.eps)\n"
                         "%%IncludeFile:/Art/b (1).eps\n(/Art/b \\(1\\).eps) `\n"
                         "%%IncludeFile:/Art/a.eps\n`(/Art/a.eps)`\n"),
                ElementsAre("/Art/a.eps", "/Art/b (1).eps", "/Art/a.eps"));
}

TEST(NativePlaced, OnlyLinkedRastersArePlacedFiles)
{
    EXPECT_THAT(GetLinks("(/Art/photo.tif) 0 XG\n() 1 XG\n(/Art/kept.tif) 1 XG\n"),
                ElementsAre("/Art/photo.tif"));
}

TEST(NativePlaced, StyledCopiesAreIgnored)
{
    EXPECT_THAT(GetLinks("(/Art/photo.tif) 0 XG\n%_(/Art/photo.tif) 0 XG\n%_`(/Art/c.eps)\n"),
                ElementsAre("/Art/photo.tif"));
}

TEST(NativePlaced, ListInTheHeaderIsTheFallback)
{
    const OpenResult result =
        OpenNative(NativeMaker().AddHeader("%%DocumentFiles:/Art/a.eps\n%%+/Art/b.eps"));
    EXPECT_THAT(result.document.linkedFiles, ElementsAre("/Art/a.eps", "/Art/b.eps"));
}

TEST(NativePlaced, DocumentWithoutPlacedFilesHasNone)
{
    EXPECT_THAT(OpenNative(NativeMaker()).document.linkedFiles, IsEmpty());
}
