#include <gmock/gmock.h>

#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"
#include "documents/pdf/details/ToUnicode.h"

using documents::Embedding;
using documents::ToUnicode;

namespace {

documents::Document OpenWithDetails(const PdfMaker& maker)
{
    documents::Limits limits;
    limits.hasDetails = true;
    return maker.Open(limits).document;
}

constexpr char kFont[] = "<< /Type /Font /Subtype /TrueType /BaseFont ";

}  // namespace

TEST(DocumentDetails, AreOnlyReadIfAskedFor)
{
    const documents::OpenResult result = PdfMaker().SetContent("BT /F1 9 Tf (abc) Tj ET").Open();
    EXPECT_TRUE(result.document.words.empty());
    EXPECT_TRUE(result.document.pageFonts.empty());
}

TEST(DocumentDetails, TellWhatIsEmbedded)
{
    PdfMaker maker;
    maker.SetContent("BT /F1 9 Tf (abc) Tj ET");
    maker.Set(10, std::string(kFont) + "/ABCDEF+One /FontDescriptor 30 0 R >>");
    maker.Set(11, std::string(kFont) + "/Two /FontDescriptor 30 0 R >>");
    maker.Set(12, std::string(kFont) + "/Three >>");
    maker.Set(30, "<< /Type /FontDescriptor /FontFile2 31 0 R >>");
    maker.SetStream(31, "", "font");
    const documents::Document document = OpenWithDetails(maker);
    ASSERT_EQ(3U, document.pageFonts.size());
    EXPECT_EQ("One", document.pageFonts[0].postScriptName);
    EXPECT_EQ(Embedding::kSubset, document.pageFonts[0].embedding);
    EXPECT_EQ(Embedding::kWhole, document.pageFonts[1].embedding);
    EXPECT_EQ(Embedding::kNo, document.pageFonts[2].embedding);
}

TEST(DocumentDetails, FontsOfFormsThatDrawEachOtherAreFoundOnce)
{
    PdfMaker maker;
    maker.AddResources("/XObject << /X 40 0 R >>");
    const std::string form =
        "/Subtype /Form /Resources << /XObject << /X 40 0 R >> /Font "
        "<< /F 41 0 R /G 41 0 R >> >>";
    maker.SetStream(40, form, "/X Do");
    maker.Set(41, std::string(kFont) + "/InForm >>");
    size_t count = 0;
    for (const documents::PageFont& font : OpenWithDetails(maker).pageFonts) {
        if (font.postScriptName == "InForm") ++count;
    }
    EXPECT_EQ(1U, count);
}

TEST(DocumentDetails, HaveTheWordsOfAPage)
{
    PdfMaker maker;
    maker.SetContent("BT /F1 9 Tf (on\\145) Tj [(tw) -20 (o)] TJ /F2 9 Tf <3334> Tj ET");
    const documents::Document document = OpenWithDetails(maker);
    EXPECT_EQ("one two", document.words.at("Alpha-Regular"));
    EXPECT_EQ("34", document.words.at("Beta-Bold"));
}

TEST(DocumentDetails, HaveABoundedNumberOfWords)
{
    PdfMaker maker;
    std::string content = "BT /F1 9 Tf ";
    for (int i = 0; i < 1000; ++i) content += "(word) Tj ";
    maker.SetContent(content + "ET");
    const std::string words = OpenWithDetails(maker).words.at("Alpha-Regular");
    EXPECT_LE(words.size(), documents::Document::kMostWordsBytes);
    EXPECT_GT(words.size(), documents::Document::kMostWordsBytes - 10);
}

TEST(DocumentDetails, HaveTheWordsOfANativePart)
{
    const documents::OpenResult sample = [] {
        documents::Limits limits;
        limits.hasDetails = true;
        return documents::OpenDocument(SAMPLES_FOLDER "/business-card.ai", limits);
    }();
    ASSERT_TRUE(sample.ok);
    EXPECT_EQ("native", sample.document.reader);
    EXPECT_EQ(3U, sample.document.words.size());
    for (const auto& [name, words] : sample.document.words) EXPECT_NE("", words) << name;
}

TEST(ToUnicodeTest, ReadsCharactersAndRanges)
{
    const ToUnicode texts(
        "1 begincodespacerange <00> <ff> endcodespacerange\n"
        "2 beginbfchar <01> <0041> <02> <00660066> endbfchar\n"
        "2 beginbfrange <10> <12> <0061> <20> <21> [<0078> <D83DDE00>] endbfrange\n");
    EXPECT_EQ("Aff", texts.Decode("\x01\x02", 1));
    EXPECT_EQ("abc", texts.Decode("\x10\x11\x12", 1));
    EXPECT_EQ("x\xf0\x9f\x98\x80", texts.Decode("\x20\x21", 1));
    EXPECT_EQ("", texts.Decode("A", 1));
}

TEST(ToUnicodeTest, EndsOnRubbish)
{
    std::string map;
    for (int i = 0; i < 20000; ++i) map += "1 beginbfrange <0000> <ffff> <0000> endbfrange ";
    (void)ToUnicode(map);
    (void)ToUnicode("endbfrange <00> <ffffffff> <0000> endbfrange ] [ <> endbfchar (");
    EXPECT_EQ("ab", ToUnicode().Decode("a\nb\xff", 1));
}
