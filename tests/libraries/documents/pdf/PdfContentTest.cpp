#include <gmock/gmock.h>

#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;

TEST(PdfContent, EveryShowingOperatorIsRead)
{
    EXPECT_EQ("Alpha-Regular:8", DescribeContent("BT /F1 9 Tf (a) Tj (bc) ' 1 2 (def) \" "
                                                 "[(g) -20 (h)] TJ ET"));
}

TEST(PdfContent, EachTextObjectIsAFrameWithItsOwnStory)
{
    const OpenResult result = PdfMaker().SetContent("BT /F1 9 Tf (a) Tj ET BT (b) Tj ET").Open();
    EXPECT_EQ("Alpha-Regular:1 | Alpha-Regular:1", DescribeFrames(result));
    EXPECT_EQ(1U, result.document.frames[1].story);
    EXPECT_EQ(2U, result.document.stories.size());
    EXPECT_THAT(result.document.fonts, ElementsAre("Alpha-Regular"));
    EXPECT_EQ("pdf", result.document.reader);
}

TEST(PdfContent, RunsAreSplitWhereTheFontChanges)
{
    EXPECT_EQ("Alpha-Regular:2 Beta-Bold:1 Alpha-Regular:1",
              DescribeContent("BT /F1 9 Tf (a) Tj /F1 12 Tf (b) Tj /F2 9 Tf (c) Tj /F1 9 Tf (d) Tj"
                              " ET"));
}

TEST(PdfContent, FontWithoutTextIsIgnored)
{
    EXPECT_EQ("Beta-Bold:1",
              DescribeContent("BT /F1 9 Tf () Tj <> Tj [-20] TJ /F2 9 Tf (x) Tj ET"));
}

TEST(PdfContent, InvisibleTextIsRead)
{
    EXPECT_EQ("Alpha-Regular:1", DescribeContent("BT 3 Tr /F1 9 Tf (a) Tj ET"));
}

TEST(PdfContent, FontIsSavedAndRestored)
{
    EXPECT_EQ("Beta-Bold:1 | Alpha-Regular:1",
              DescribeContent("/F1 9 Tf q /F2 9 Tf BT (a) Tj ET Q BT (b) Tj ET Q Q"));
}

TEST(PdfContent, FontOfAGraphicsStateIsUsed)
{
    EXPECT_EQ("Beta-Bold:1", DescribeFrames(PdfMaker()
                                                .AddResources("/ExtGState << /G << /Font "
                                                              "[11 0 R 9] >> >>")
                                                .SetContent("BT /G gs (a) Tj ET")
                                                .Open()));
}

TEST(PdfContent, CodesOfTwoBytesAreCountedForCompositeFonts)
{
    EXPECT_EQ("Gamma-Medium:3", DescribeContent("BT /F3 9 Tf <00010002> Tj <00> Tj ET"));
}

TEST(PdfContent, Type3FontsAreIgnored) { EXPECT_EQ("", DescribeContent("BT /F4 9 Tf (a) Tj ET")); }

TEST(PdfContent, TextWithoutAKnownFontIsIgnored)
{
    const OpenResult result =
        PdfMaker().SetContent("BT (a) Tj /F9 9 Tf (b) Tj /F1 9 Tf (c) Tj ET").Open();
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
    EXPECT_THAT(result.document.notes,
                ElementsAre("text asks for fonts that the page doesn't define"));
}

TEST(PdfContent, NamesInContentAreDecoded)
{
    EXPECT_EQ("Alpha-Regular:1", DescribeContent("BT /#461 9 Tf (a) Tj ET"));
}

TEST(PdfContent, StringsOfPropertiesAreIgnored)
{
    EXPECT_EQ("Alpha-Regular:1",
              DescribeContent("BT /F1 9 Tf /Span << /ActualText (long text) >> BDC (a) Tj EMC ET"));
}

TEST(PdfContent, TextOutsideATextObjectIsRead)
{
    EXPECT_EQ("Alpha-Regular:1", DescribeContent("/F1 9 Tf (a) Tj"));
    EXPECT_EQ("Alpha-Regular:2", DescribeContent("BT /F1 9 Tf (a) Tj BT (b) Tj"));
}

TEST(PdfContent, SeveralContentStreamsAreOne)
{
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(PdfMaker()
                                                    .Set(4, "[20 0 R 21 0 R]")
                                                    .SetStream(20, "", "BT /F1 9")
                                                    .SetStream(21, "", "Tf (a) Tj ET")
                                                    .Open()));
}

TEST(PdfContent, PagesInheritResources)
{
    EXPECT_EQ("Alpha-Regular:1 | Beta-Bold:1",
              DescribeFrames(PdfMaker()
                                 .Set(2,
                                      "<< /Type /Pages /Kids [3 0 R 20 0 R] /Count 2 "
                                      "/Resources 5 0 R >>")
                                 .SetContent("BT /F1 9 Tf (a) Tj ET")
                                 .Set(20,
                                      "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 9 9] "
                                      "/Contents 21 0 R >>")
                                 .SetStream(21, "", "BT /F2 9 Tf (b) Tj ET")
                                 .Open()));
}

TEST(PdfContent, PageWithoutContentHasNoFrames)
{
    EXPECT_EQ("", DescribeFrames(PdfMaker().Set(3, "<< /Type /Page /Parent 2 0 R >>").Open()));
}

TEST(PdfContent, FontNamesAreValidUtf8)
{
    const OpenResult result =
        PdfMaker()
            .Set(10, "<< /Type /Font /Subtype /TrueType /BaseFont /ABCDEF+#CB#CE#CC#E5 >>")
            .SetContent("BT /F1 9 Tf (a) Tj ET")
            .Open();
    EXPECT_THAT(result.document.fonts, ElementsAre("\uFFFD\uFFFD\uFFFD\uFFFD"));
}

TEST(PdfContent, FontWithoutBaseNameIsNamedByItsDescriptor)
{
    EXPECT_EQ("Delta:1", DescribeFrames(PdfMaker()
                                            .Set(10,
                                                 "<< /Type /Font /Subtype /TrueType "
                                                 "/FontDescriptor << /FontName /Delta >> >>")
                                            .SetContent("BT /F1 9 Tf (a) Tj ET")
                                            .Open()));
}

TEST(PdfContent, FontsMayBeDirectObjects)
{
    EXPECT_EQ("Epsilon:1 Zeta:1",
              DescribeFrames(PdfMaker()
                                 .Set(5,
                                      "<< /Font << /F1 << /Subtype /Type1 /BaseFont /Epsilon >> "
                                      "/F2 << /Subtype /Type1 /BaseFont /Zeta >> >> >>")
                                 .SetContent("BT /F1 9 Tf (a) Tj /F2 9 Tf (b) Tj ET")
                                 .Open()));
}

TEST(PdfContent, CidFontWithoutNameHasTheOuterNameWithoutTheEncoding)
{
    const auto getFrames = [](const std::string& outer, const std::string& encoding) {
        return DescribeFrames(PdfMaker()
                                  .Set(12, "<< /Type /Font /Subtype /Type0 /BaseFont /" + outer +
                                               " /Encoding /" + encoding +
                                               " /DescendantFonts [13 0 R] >>")
                                  .Set(13, "<< /Type /Font /Subtype /CIDFontType0 >>")
                                  .SetContent("BT /F3 9 Tf (aa) Tj ET")
                                  .Open());
    };
    EXPECT_EQ("Gamma:1", getFrames("Gamma-Identity-H", "Identity-H"));
    EXPECT_EQ("Gamma:1", getFrames("QWERTY+Gamma-Identity-V", "Identity-V"));
    EXPECT_EQ("Gamma:2", getFrames("Gamma-H", "Other"));
    EXPECT_EQ("Gamma:2", getFrames("Gamma-V", "V"));
    EXPECT_EQ("Gamma:1", getFrames("Gamma-UniJIS-UTF16-H", "UniJIS-UTF16-H"));
    EXPECT_EQ("Gamma:1", getFrames("Gamma", "Identity-H"));
}

TEST(PdfContent, CidFontsOwnNameIsHandedOnAsItIs)
{
    EXPECT_EQ("Gamma-Bold-Identity-H:1",
              DescribeFrames(PdfMaker()
                                 .Set(13,
                                      "<< /Type /Font /Subtype /CIDFontType0 "
                                      "/BaseFont /QWERTY+Gamma-Bold-Identity-H >>")
                                 .SetContent("BT /F3 9 Tf (aa) Tj ET")
                                 .Open()));
}

TEST(PdfContent, SubsetPrefixAloneIsNoName)
{
    PdfMaker maker;
    maker.SetContent("BT /F1 9 Tf (a) Tj ET");
    maker.Set(10, "<< /Type /Font /Subtype /Type1 /BaseFont /ABCDEE+ >>");
    EXPECT_EQ("", DescribeFrames(maker.Open()));
    maker.Set(10,
              "<< /Type /Font /Subtype /Type1 /BaseFont /ABCDEE+ "
              "/FontDescriptor << /FontName /ABCDEE+Delta >> >>");
    EXPECT_EQ("Delta:1", DescribeFrames(maker.Open()));
}
