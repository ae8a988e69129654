#include <gmock/gmock.h>

#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Two frames: one with text in Serif-Bold, one with nothing but a return in Sans-Italic.
NativeMaker MakeWithReturn(const std::string& header)
{
    NativeMaker maker;
    if (!header.empty()) maker.AddHeader(header);
    return maker.SetFonts({"Default-Regular", "Serif-Bold", "Sans-Italic"})
        .AddStyle(0)
        .AddStory({{1, 5}})
        .AddStory({{2, 1}})
        .AddFrame(0)
        .AddFrame(1);
}

// Returns the names, with "*" after those that are only listed.
std::string Describe(const Document& document)
{
    std::string text;
    for (const DocumentFont& font : GetAllFonts(document)) {
        text += (text.empty() ? "" : " ") + font.postScriptName + (font.isListed ? "*" : "");
    }
    return text;
}

std::string DescribeWithHeader(const std::string& header)
{
    return Describe(OpenNative(MakeWithReturn(header)).document);
}

std::string DescribeBytes(const std::string& bytes) { return Describe(OpenBytes(bytes).document); }

// A document of version 8 with text in Times-Bold.
std::string MakeBare(const std::string& header, const std::string& end = "")
{
    return "%!PS-Adobe-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n" + header +
           "%AI5_FileFormat 4.0\n%%EndComments\n0 To\n/_Times-Bold 11 8 -2 Tf\n(abc) Tx\nTO\n" +
           end + "%%EOF\n";
}

std::string Replace(std::string text, const std::string& from, const std::string& to)
{
    return text.replace(text.find(from), from.size(), to);
}

}  // namespace

TEST(NativeFontList, FontOfAFrameWithOnlyAReturnIsListed)
{
    const OpenResult result =
        OpenNative(MakeWithReturn("%%DocumentFonts: Sans-Italic\n%%+ Serif-Bold"));
    EXPECT_EQ("Serif-Bold Sans-Italic*", Describe(result.document));
    EXPECT_THAT(GetAllFontNames(result.document), ElementsAre("Serif-Bold", "Sans-Italic"));
    EXPECT_THAT(result.document.fonts, ElementsAre("Serif-Bold"));
    EXPECT_EQ(2U, result.document.frames.size());
    EXPECT_EQ(1U, result.document.frames[0].runs.size());
    EXPECT_THAT(result.document.frames[1].runs, IsEmpty());
    EXPECT_THAT(result.document.notes, IsEmpty());
}

TEST(NativeFontList, IsReadInEveryContainer)
{
    const std::string expected = "Serif-Bold Sans-Italic*";
    const std::string list = "%%DocumentFonts: Serif-Bold Sans-Italic";
    const std::string text = MakeWithReturn(list).MakeText();
    EXPECT_EQ(expected, DescribeBytes(WrapInPdf(PackPlain(text))));
    EXPECT_EQ(expected, DescribeBytes(WrapInPdf(PackZstandard(text))));
    EXPECT_EQ(expected, DescribeBytes(WrapInEps(PackZlib(text))));
    EXPECT_EQ(expected, DescribeBytes(WrapInDosEps(WrapInEps(text))));
    // The files of version 24 and later have the list behind the format mark.
    const std::string late =
        Replace(MakeWithReturn("").MakeText(), "%%EndComments", list + "\r%%EndComments");
    EXPECT_EQ(expected, DescribeBytes(WrapInNewEps(late)));
    EXPECT_EQ("Times-Bold Symbol*", DescribeBytes(MakeBare("%%DocumentFonts: Symbol\r\n")));
}

TEST(NativeFontList, ListOfTheContainerIsIgnored)
{
    const std::string eps = WrapInEps(MakeWithReturn("").MakeText());
    EXPECT_EQ("Serif-Bold",
              DescribeBytes(Replace(eps, "%%DocumentFonts: ", "%%DocumentFonts: Outer")));
}

TEST(NativeFontList, OtherCommentsAreIgnored)
{
    EXPECT_EQ("Serif-Bold", DescribeWithHeader(
                                "%%DocumentNeededFonts: Needed\n%%DocumentSuppliedFonts: Supplied\n"
                                "%%+ More\n%%Title: x\n%%+ y\n%%DocumentNeededResources: font F"));
    EXPECT_EQ("Times-Bold", DescribeBytes(MakeBare("", "%%DocumentFonts: Body\n")));
    EXPECT_EQ("Times-Bold", DescribeBytes(MakeBare("/x 1 def\n%%DocumentFonts: Body\n")));
}

TEST(NativeFontList, NamesAreReadAsInOtherComments)
{
    EXPECT_EQ("Serif-Bold My Font* Slash* Bad\uFFFD*",
              DescribeWithHeader("%%DocumentFonts: (My Font) /Slash Slash () AdobeInvisFont\n"
                                 "%%+Bad\xFF"));
}

TEST(NativeFontList, ListAtTheEndIsRead)
{
    const std::string trailer = "%%Trailer\n%%DocumentFonts: No\n%%Trailer\n%%DocumentFonts: ";
    for (const std::string atEnd : {"(atend)", "atend"}) {
        const std::string header = "%%DocumentFonts: " + atEnd + "\n";
        EXPECT_EQ("Times-Bold A* B*", DescribeBytes(MakeBare(header, trailer + "A\n%%+ B\n")));
        EXPECT_EQ("Times-Bold", DescribeBytes(MakeBare(header)));
    }
    EXPECT_EQ("Times-Bold", DescribeBytes(MakeBare("", trailer + "A\n")));
}

TEST(NativeFontList, FontsOfTheTextThatItLacksAreNoted)
{
    EXPECT_THAT(OpenNative(MakeWithReturn("%%DocumentFonts: Sans-Italic")).document.notes,
                ElementsAre("fonts of its text that its own list of fonts lacks: Serif-Bold"));
    NativeMaker maker;
    maker.AddHeader("%%DocumentFonts: A").SetFonts({"A", "B", "C", "D", "E", "F"}).AddStyle(0);
    maker.AddStory({{5, 2}, {4, 2}, {3, 2}, {2, 2}, {1, 2}, {0, 2}}).AddFrame(0);
    EXPECT_THAT(
        OpenNative(maker).document.notes,
        ElementsAre("fonts of its text that its own list of fonts lacks: F, E, D and 2 more"));
}

TEST(NativeFontList, ListWithoutNamesIsNone)
{
    EXPECT_THAT(OpenNative(MakeWithReturn("%%DocumentFonts:")).document.notes, IsEmpty());
    EXPECT_THAT(OpenNative(MakeWithReturn("%%DocumentFonts: ()")).document.notes, IsEmpty());
}

TEST(NativeFontList, TextThatTheHostAddedIsNotNoted)
{
    const std::string eps = WrapInEps(MakeWithReturn("%%DocumentFonts: Serif-Bold").MakeText()) +
                            "%HeadlessHost_Text: 5 (Added)\r";
    const OpenResult result = OpenBytes(eps);
    EXPECT_EQ("Serif-Bold Added", Describe(result.document));
    EXPECT_THAT(result.document.notes, IsEmpty());
}

TEST(NativeFontList, OtherReadersHaveNone)
{
    const OpenResult eps = OpenBytes("%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: A B\n");
    EXPECT_EQ("A B", Describe(eps.document));
    EXPECT_THAT(eps.document.fontList, IsEmpty());
    EXPECT_THAT(PdfMaker().SetContent("BT /F1 9 Tf (a) Tj ET").Open().document.fontList, IsEmpty());
}

TEST(NativeFontList, NameThatIsTooLongIsNoted)
{
    const std::string more(128, 'A');
    const OpenResult result =
        OpenNative(MakeWithReturn("%%DocumentFonts: Serif-Bold " + more + " " + more));
    EXPECT_EQ("Serif-Bold", Describe(result.document));
    EXPECT_THAT(result.document.notes,
                ElementsAre("font names that are empty or have more than 127 bytes are left out"));
}

TEST(NativeFontList, ListThatIsTooLongIsRefused)
{
    std::string list = "%%DocumentFonts:";
    for (int i = 0; i < 1000000; ++i) list += " F" + std::to_string(i);
    EXPECT_EQ("too large: its comments name more than can be read",
              OpenNative(MakeWithReturn(list)).error);
}

TEST(DocumentFonts, FontThatTextHasSinceIsNotListed)
{
    Document document;
    document.fontList = {"A", "B"};
    EXPECT_EQ("A* B*", Describe(document));
    document.fonts = {"B"};
    EXPECT_EQ("B A*", Describe(document));
}
