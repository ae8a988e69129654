#include <gmock/gmock.h>

#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"
#include "documents/write/WriteDocument.h"

using namespace documents;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr char kFontFile[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

std::string MakeNative()
{
    return NativeMaker()
        .SetFonts({"Native-Default", "Native-Bold"})
        .AddStyle(0)
        .AddStory({{1, 5}})
        .AddFrame(0)
        .AddLines("`(/Art/a.eps)")
        .MakeText();
}

// The order to save the document `base` with an added text and placed file.
WriteOrder MakeOrder(const std::string& base, const std::string& link = "/Art/b (1).eps")
{
    const OpenResult opened = OpenBytes(base);
    WriteOrder order;
    order.base = base;
    order.texts = {{"Added-Font", "\xC3\xA4\xC3\xB6"}};
    order.fonts = opened.document.fonts;
    order.fonts.push_back("Added-Font");
    order.linkedFiles = opened.document.linkedFiles;
    order.linkedFiles.push_back(link);
    order.addedLinks = {link};
    order.findFont = [](const std::string&) { return FontFile{kFontFile, 0}; };
    order.substituteFont = "DejaVuSans";
    return order;
}

}  // namespace

TEST(NativeSave, PdfKeepsTheNativePartAndRecordsAdditions)
{
    const OpenResult saved = OpenBytes(WritePdf(MakeOrder(WrapInPdf(PackZlib(MakeNative())))));
    EXPECT_EQ("native", saved.document.reader);
    EXPECT_EQ("Native-Bold:4 | Added-Font:2", DescribeFrames(saved));
    EXPECT_THAT(saved.document.linkedFiles, ElementsAre("/Art/a.eps", "/Art/b (1).eps"));
}

TEST(NativeSave, TheSecondSaveOfAPdfKeepsTheFirst)
{
    const std::string once = WritePdf(MakeOrder(WrapInPdf(PackZlib(MakeNative()))));
    const OpenResult saved = OpenBytes(WritePdf(MakeOrder(once, "/Art/c.eps")));
    EXPECT_EQ("Native-Bold:4 | Added-Font:2 | Added-Font:2", DescribeFrames(saved));
    EXPECT_THAT(saved.document.linkedFiles,
                ElementsAre("/Art/a.eps", "/Art/b (1).eps", "/Art/c.eps"));
}

TEST(NativeSave, ThePdfPageShowsAddedText)
{
    std::string pdf = WritePdf(MakeOrder(WrapInPdf("damaged")));
    const OpenResult saved = OpenBytes(pdf);
    EXPECT_EQ("pdf", saved.document.reader);
    EXPECT_EQ("Alpha-Regular:3 | Added-Font:2", DescribeFrames(saved));
}

TEST(NativeSave, PdfWithoutANativePartKeepsItsMetadataAndRecordsPlacedFiles)
{
    const std::string packet =
        "<r:RDF><m:Manifest><r:filePath>/original.eps</r:filePath></m:Manifest></r:RDF>";
    PdfMaker maker;
    maker.Set(1, "<< /Type /Catalog /Pages 2 0 R /Metadata 20 0 R >>")
        .SetStream(20, "/Type /Metadata /Subtype /XML", packet)
        .SetContent("BT /F1 9 Tf (abc) Tj ET");
    const std::string once = WritePdf(MakeOrder(maker.Make()));
    EXPECT_THAT(once, HasSubstr(packet));
    const OpenResult saved = OpenBytes(WritePdf(MakeOrder(once, "/Art/c.eps")));
    EXPECT_EQ("pdf", saved.document.reader);
    EXPECT_EQ("Alpha-Regular:3 | Added-Font:2 | Added-Font:2", DescribeFrames(saved));
    EXPECT_THAT(saved.document.linkedFiles, ElementsAre("/Art/b (1).eps", "/Art/c.eps"));
}

TEST(NativeSave, EpsKeepsTheNativePartAndRecordsAdditions)
{
    const OpenResult saved = OpenBytes(WriteEps(MakeOrder(WrapInEps(MakeNative()))));
    EXPECT_EQ("native", saved.document.reader);
    EXPECT_EQ("Native-Bold:4 | Added-Font:2", DescribeFrames(saved));
    EXPECT_THAT(saved.document.linkedFiles, ElementsAre("/Art/a.eps", "/Art/b (1).eps"));
}

TEST(NativeSave, FileOfVersionEightKeepsItsText)
{
    for (const char* const placed : {"`(/Art/a.eps)\n", "%%IncludeFile: /Art/a.eps\n"}) {
        const std::string base =
            NativeMaker()
                .AddLines(std::string(placed) + "0 To\n/_Courier 11 8 -2 Tf\n(abc) Tx\nTO")
                .MakeText("\n");
        const OpenResult saved = OpenBytes(WriteEps(MakeOrder(base)));
        EXPECT_EQ("native", saved.document.reader);
        EXPECT_EQ("Courier:3 | Added-Font:2", DescribeFrames(saved));
        EXPECT_THAT(saved.document.linkedFiles, ElementsAre("/Art/a.eps", "/Art/b (1).eps"));
    }
}
