#include <gmock/gmock.h>

#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kManifest[] =
    "<m:Manifest><r:filePath>/b &amp; c.eps</r:filePath><r:filePath>/a.eps</r:filePath>"
    "<r:filePath>/a.eps</r:filePath></m:Manifest>";

PdfMaker MakeWithXmp(const std::string& packet)
{
    PdfMaker maker;
    maker.Set(1, "<< /Type /Catalog /Pages 2 0 R /Metadata 20 0 R >>");
    maker.SetStream(20, "/Type /Metadata /Subtype /XML /Filter /FlateDecode", Deflate(packet));
    return maker;
}

}  // namespace

TEST(PdfFacts, CreatorIsInTheInformationDictionary)
{
    const OpenResult result = PdfMaker().AddTrailerEntries("/Info << /Creator (Drawer) >>").Open();
    EXPECT_EQ("Drawer", result.document.creator);
    EXPECT_EQ(Kind::kPDF, result.document.kind);
}

TEST(PdfFacts, CreatorMayBeInUtf16)
{
    EXPECT_EQ(
        "\u00C9",
        PdfMaker().AddTrailerEntries("/Info << /Creator <FEFF00C9> >>").Open().document.creator);
}

TEST(PdfFacts, CreatorOfTheXmpPacketIsTheFallback)
{
    EXPECT_EQ("Drawer",
              MakeWithXmp("<xmp:CreatorTool>Drawer</xmp:CreatorTool>").Open().document.creator);
}

TEST(PdfFacts, ManifestIsIgnoredWithoutANativePart)
{
    EXPECT_THAT(MakeWithXmp(kManifest).Open().document.linkedFiles, IsEmpty());
    EXPECT_THAT(MakeWithXmp(kManifest)
                    .AddPageEntries("/PieceInfo << /Illustrator << /Private << >> >> >>")
                    .Open()
                    .document.linkedFiles,
                IsEmpty());
    PdfMaker drawing = MakeWithXmp(kManifest);
    drawing.AddResources("/XObject << /A 21 0 R >>")
        .SetStream(21, "/Subtype /Image /OPI << /1.3 << /F (z.tif) >> >>", "x")
        .SetContent("/A Do");
    EXPECT_THAT(drawing.Open().document.linkedFiles, ElementsAre("z.tif"));
}

TEST(PdfFacts, ManifestReplacesTheFilesThatAreDrawnIfTheNativePartIsDamaged)
{
    PdfMaker maker = MakeWithXmp(kManifest);
    maker
        .AddPageEntries("/PieceInfo << /Illustrator << /Private << /AIPrivateData1 22 0 R >> >> >>")
        .SetStream(22, "", "damaged")
        .AddResources("/XObject << /A 21 0 R >>")
        .SetStream(21, "/Subtype /Image /OPI << /1.3 << /F (z.tif) >> >>", "x")
        .SetContent("/A Do");
    EXPECT_THAT(maker.Open().document.linkedFiles, ElementsAre("/b & c.eps", "/a.eps", "/a.eps"));
}

TEST(PdfFacts, WarningsOfSoundFilesAreNoNotes)
{
    const OpenResult result = PdfMaker()
                                  .AddResources("/ColorSpace << >> /ColorSpace << >>")
                                  .AddTrailerEntries("/Size 5")
                                  .SetContent("BT /F1 9 Tf (a) Tj ET")
                                  .Open();
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
    EXPECT_EQ("", JoinNotes(result.document));
}

TEST(PdfFacts, NativePartDeterminesTheKind)
{
    EXPECT_EQ(Kind::kIllustrator, PdfMaker()
                                      .AddPageEntries("/PieceInfo << /Illustrator << /Private "
                                                      "<< >> >> >>")
                                      .Open()
                                      .document.kind);
    EXPECT_EQ(Kind::kPDF, PdfMaker().AddPageEntries("/PieceInfo /None").Open().document.kind);
}

TEST(PdfFacts, CreatorDeterminesTheKind)
{
    EXPECT_EQ(Kind::kIllustrator,
              PdfMaker()
                  .AddTrailerEntries("/Info << /Creator (Adobe Illustrator 25.0) >>")
                  .Open()
                  .document.kind);
}
