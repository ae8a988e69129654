#include <gmock/gmock.h>

#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;

namespace {

constexpr char kBetaResources[] = "/Resources << /Font << /F1 11 0 R >> >>";

// Returns a page with `content` and the form /X (object 20), which shows text in Beta-Bold.
PdfMaker MakeWithForm(const std::string& content)
{
    PdfMaker maker;
    maker.SetContent(content)
        .AddResources("/XObject << /X 20 0 R >>")
        .SetStream(20, std::string("/Subtype /Form ") + kBetaResources, "BT /F1 9 Tf (bb) Tj ET");
    return maker;
}

}  // namespace

TEST(PdfForms, AreReadWithTheirOwnResources)
{
    EXPECT_EQ("Beta-Bold:2 | Alpha-Regular:1",
              DescribeFrames(MakeWithForm("/X Do BT /F1 9 Tf (a) Tj ET").Open()));
}

TEST(PdfForms, AreIgnoredUnlessDrawn) { EXPECT_EQ("", DescribeFrames(MakeWithForm("").Open())); }

TEST(PdfForms, AreReadOnceIfDrawnTwice)
{
    EXPECT_EQ("Beta-Bold:2", DescribeFrames(MakeWithForm("/X Do /X Do").Open()));
}

TEST(PdfForms, DoNotChangeTheFontOutside)
{
    EXPECT_EQ("Beta-Bold:2 | Alpha-Regular:1",
              DescribeFrames(MakeWithForm("/F1 9 Tf /X Do BT (a) Tj ET").Open()));
}

TEST(PdfForms, InheritFontAndResources)
{
    PdfMaker maker = MakeWithForm("/F1 9 Tf /X Do /F2 9 Tf /X Do");
    maker.SetStream(20, "/Subtype /Form", "BT (x) Tj /F3 9 Tf (yy) Tj ET");
    EXPECT_EQ("Alpha-Regular:1 Gamma-Medium:1 | Beta-Bold:1 Gamma-Medium:1",
              DescribeFrames(maker.Open()));
}

TEST(PdfForms, InheritTheResourcesOfEachPageThatDrawsThem)
{
    PdfMaker maker = MakeWithForm("/X Do");
    maker.SetStream(20, "/Subtype /Form", "BT /F1 9 Tf (x) Tj ET")
        .Set(2, "<< /Type /Pages /Kids [3 0 R 30 0 R] /Count 2 >>")
        .Set(30,
             "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Resources << /XObject << /X 20 0 R >> "
             "/Font << /F1 11 0 R >> >> >>");
    EXPECT_EQ("Alpha-Regular:1 | Beta-Bold:1", DescribeFrames(maker.Open()));
}

TEST(PdfForms, MayDrawThemselves)
{
    PdfMaker maker = MakeWithForm("/X Do");
    maker.SetStream(20,
                    "/Subtype /Form /Resources << /Font << /F1 11 0 R >> "
                    "/XObject << /X 20 0 R /Y 21 0 R >> >>",
                    "/X Do /Y Do BT /F1 9 Tf (b) Tj ET");
    maker.SetStream(21, "/Subtype /Form /Resources << /XObject << /X 20 0 R >> >>", "/X Do");
    EXPECT_EQ("Beta-Bold:1", DescribeFrames(maker.Open()));
}

TEST(PdfForms, TilingPatternsAreReadWhenSet)
{
    PdfMaker maker;
    maker.AddResources("/Pattern << /P 20 0 R /Q 21 0 R >>")
        .SetStream(20, std::string("/PatternType 1 ") + kBetaResources, "BT /F1 9 Tf (b) Tj ET")
        .SetStream(21, "/PatternType 1 /Resources << /Font << /F1 12 0 R >> >>",
                   "BT /F1 9 Tf (c) Tj ET")
        .SetContent("/Pattern cs /P scn 0 0 1 scn");
    EXPECT_EQ("Beta-Bold:1", DescribeFrames(maker.Open()));
}

TEST(PdfForms, SoftMasksAreRead)
{
    PdfMaker maker;
    maker.AddResources("/ExtGState << /G << /SMask << /G 20 0 R >> >> /N << /SMask /None >> >>")
        .SetStream(20, std::string("/Subtype /Form ") + kBetaResources, "BT /F1 9 Tf (b) Tj ET")
        .SetContent("/G gs /N gs");
    const OpenResult result = maker.Open();
    EXPECT_EQ("Beta-Bold:1", DescribeFrames(result));
    EXPECT_TRUE(result.document.notes.empty());
}

TEST(PdfForms, AppearancesOfAnnotationsAreReadInTheirState)
{
    PdfMaker maker;
    maker
        .AddPageEntries(
            "/Annots [<< /AP << /N 20 0 R >> >> << /F 2 /AP << /N 21 0 R >> >> "
            "<< /AS /On /AP << /N << /On 22 0 R /Off 21 0 R >> >> >> null 7]")
        .SetStream(20, kBetaResources, "BT /F1 9 Tf (b) Tj ET")
        .SetStream(21, "/Resources << /Font << /F1 12 0 R >> >>", "BT /F1 9 Tf (c) Tj ET")
        .SetStream(22, "/Resources << /Font << /F1 10 0 R >> >>", "BT /F1 9 Tf (d) Tj ET");
    EXPECT_EQ("Beta-Bold:1 | Alpha-Regular:1", DescribeFrames(maker.Open()));
}

TEST(PdfForms, DefaultResourcesOfFieldsAreIgnored)
{
    PdfMaker maker;
    maker.Set(1,
              "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [] /DR << /Font << /H 11 0 R "
              ">> >> /DA (/H 9 Tf) >> >>");
    EXPECT_EQ("", DescribeFrames(maker.Open()));
}

TEST(PdfForms, ExternalFilesAreListedForEachDrawing)
{
    PdfMaker maker;
    maker.AddResources("/XObject << /A 20 0 R /B 21 0 R >>")
        .SetStream(20, "/Subtype /Image /OPI << /1.3 << /F (a.tif) >> >>", "x")
        .SetStream(21, "/Subtype /Form /OPI << /2.0 << /F << /F (b.eps) >> >> >>", "")
        .SetContent("/B Do /A Do /B Do");
    EXPECT_THAT(maker.Open().document.linkedFiles, ElementsAre("b.eps", "a.tif", "b.eps"));
}

TEST(PdfForms, GlyphsOfType3FontsAreReadWhenShown)
{
    PdfMaker maker;
    maker.Set(14,
              "<< /Type /Font /Subtype /Type3 /CharProcs << /a 20 0 R >> "
              "/Resources << /Font << /F1 11 0 R >> >> >>");
    maker.SetStream(20, "", "9 0 d0 BT /F1 9 Tf (b) Tj ET");
    EXPECT_EQ("Beta-Bold:1",
              DescribeFrames(maker.SetContent("BT /F4 9 Tf (a) Tj (a) Tj ET").Open()));
    EXPECT_EQ("", DescribeFrames(maker.SetContent("BT /F4 9 Tf () Tj ET").Open()));
}

TEST(PdfForms, GlyphsWithoutResourcesUseThoseOfThePage)
{
    PdfMaker maker;
    maker.Set(14, "<< /Type /Font /Subtype /Type3 /CharProcs << /a 20 0 R >> >>");
    maker.SetStream(20, "", "9 0 d0 BT /F4 9 Tf (a) Tj /F2 9 Tf (b) Tj ET");
    EXPECT_EQ("Beta-Bold:1", DescribeFrames(maker.SetContent("BT /F4 9 Tf (a) Tj ET").Open()));
}
