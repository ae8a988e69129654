#include <gmock/gmock.h>

#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string MakeText(const std::string& lineEnd = "\r")
{
    return NativeMaker()
        .SetFonts({"Native-Default", "Native-Bold"})
        .AddStyle(0)
        .AddStory({{1, 5}})
        .AddFrame(0)
        .MakeText(lineEnd);
}

std::string DescribeWithReader(const std::string& bytes)
{
    const OpenResult result = OpenBytes(bytes);
    return result.document.reader + " " + DescribeFrames(result);
}

// Without Ghostscript, whether it is installed or not.
Document OpenWithoutHelper(const std::string& eps)
{
    Limits limits;
    limits.helperSeconds = 0;
    return OpenBytes(eps, "made.eps", limits).document;
}

// A page with private data whose only block is `block`, packed in another way than by this project.
OpenResult OpenWithBlock(const std::string& dictionary, const std::string& block)
{
    return PdfMaker()
        .SetContent("BT /F1 9 Tf (abc) Tj ET")
        .AddPageEntries("/PieceInfo << /Illustrator << /Private 20 0 R >> >>")
        .Set(20, "<< /AIPrivateData1 21 0 R /NumBlock 1 >>")
        .SetStream(21, dictionary, block)
        .Open();
}

class NativeLineEnds : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(NativeLineEnds, AreAllRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInPdf(MakeText(GetParam()))));
}

INSTANTIATE_TEST_SUITE_P(All, NativeLineEnds, testing::Values("\r", "\n", "\r\n", "\r\r\n"));

TEST(NativeContainer, UncompressedBlocksAreRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInPdf(PackPlain(MakeText()))));
}

TEST(NativeContainer, FlateBlocksAreRead)
{
    const std::string text = MakeText();
    for (const std::string filter : {"/FlateDecode", "[ /FlateDecode ]"}) {
        const OpenResult result = OpenWithBlock("/Filter " + filter, Deflate(text));
        EXPECT_EQ("native", result.document.reader);
        EXPECT_EQ("Native-Bold:4", DescribeFrames(result));
        EXPECT_THAT(result.document.notes, IsEmpty());
    }
}

TEST(NativeContainer, FlateBlocksWithOtherFiltersOrAPredictorAreRead)
{
    const std::string text = MakeText();
    std::string hex;
    for (const char c : Deflate(text)) {
        constexpr std::string_view kDigits = "0123456789abcdef";
        hex += kDigits[static_cast<unsigned char>(c) >> 4];
        hex += kDigits[c & 15];
    }
    EXPECT_EQ("Native-Bold:4",
              DescribeFrames(OpenWithBlock("/Filter [ /ASCIIHexDecode /FlateDecode ]", hex + ">")));
    // Each row begins with its predictor, here none.
    std::string rows;
    for (const char c : text) rows += {'\0', c};
    EXPECT_EQ(
        "Native-Bold:4",
        DescribeFrames(OpenWithBlock(
            "/Filter /FlateDecode /DecodeParms << /Predictor 10 /Columns 1 >>", Deflate(rows))));
}

TEST(NativeContainer, AFlateBlockWithAWrongChecksumOrWithoutItsEndIsRead)
{
    // The text isn't compressed: its last byte is in front of the checksum.
    const std::string packed = Deflate(MakeText(), 0);
    std::string wrong = packed;
    wrong.back() = static_cast<char>(~wrong.back());
    const OpenResult result = OpenWithBlock("/Filter /FlateDecode", wrong);
    EXPECT_EQ("native Native-Bold:4", result.document.reader + " " + DescribeFrames(result));
    EXPECT_THAT(result.document.notes, IsEmpty());
    const OpenResult cut =
        OpenWithBlock("/Filter /FlateDecode", packed.substr(0, packed.size() - 6));
    EXPECT_EQ("native Native-Bold:4", cut.document.reader + " " + DescribeFrames(cut));
    EXPECT_THAT(cut.document.notes,
                ElementsAre("damaged: input stream is complete but output may still be valid"));
}

TEST(NativeContainer, ADamagedFlateBlockFallsBackToThePage)
{
    std::string packed = Deflate(MakeText(), 0);
    packed[2] = 7;  // the type of the first block of data: there is no such type
    const OpenResult result = OpenWithBlock("/Filter /FlateDecode", packed);
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_EQ("Alpha-Regular:3", DescribeFrames(result));
    EXPECT_THAT(result.document.notes,
                ElementsAre("the native document cannot be read: it has no format mark",
                            "streams that cannot be decoded completely: 1"));
}

TEST(NativeContainer, ZlibBehindAHeaderIsRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInPdf(PackZlib(MakeText()))));
}

TEST(NativeContainer, ZstandardIsRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInPdf(PackZstandard(MakeText()))));
}

TEST(NativeContainer, MarkMaySpanTwoBlocks)
{
    for (size_t blocks = 1; blocks < 40; ++blocks) {
        EXPECT_EQ("native Native-Bold:4",
                  DescribeWithReader(WrapInPdf(PackZlib(MakeText()), blocks)))
            << blocks;
    }
}

TEST(NativeContainer, DataStreamOfAnEpsIsRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInEps(MakeText())));
}

TEST(NativeContainer, CompressedDataInTheStreamOfAnEpsIsRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInEps(PackZlib(MakeText()))));
}

TEST(NativeContainer, ZstandardStreamOfAnEpsIsRead)
{
    EXPECT_EQ("native Native-Bold:4", DescribeWithReader(WrapInNewEps(MakeText())));
}

TEST(NativeContainer, ZstandardStreamWithoutAFormatMarkFallsBackToTheComments)
{
    std::string native = MakeText();
    native.replace(native.find("%AI5_FileFormat"), 15, "%AI5_OtherFormat");
    EXPECT_THAT(OpenWithoutHelper(WrapInNewEps(native)).notes,
                Contains("the native document cannot be read: it has no format mark"));
}

TEST(NativeContainer, CutOffZstandardStreamFallsBackToTheComments)
{
    std::string eps = WrapInNewEps(MakeText());
    eps.erase(eps.find("~>") - 40);
    const Document document = OpenWithoutHelper(eps);
    EXPECT_EQ("dsc", document.reader);
    EXPECT_THAT(document.notes,
                Contains("the native document cannot be read: its zstd data is cut off"));
}

TEST(NativeContainer, DosEpsIsRead)
{
    const OpenResult result = OpenBytes(WrapInDosEps(WrapInEps(MakeText())));
    EXPECT_EQ("Native-Bold:4", DescribeFrames(result));
    EXPECT_EQ(Kind::kEPS, result.document.kind);
}

TEST(NativeContainer, PageWithoutANativePartIsReadAsPdf)
{
    const OpenResult result = PdfMaker().SetContent("BT /F1 9 Tf (a) Tj ET").Open();
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_THAT(result.document.notes, IsEmpty());
}

TEST(NativeContainer, CutOffZlibFallsBackToThePage)
{
    const std::string native = PackZlib(MakeText());
    const OpenResult result = OpenBytes(WrapInPdf(native.substr(0, native.size() - 20)));
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_EQ("Alpha-Regular:3", DescribeFrames(result));
    EXPECT_THAT(result.document.notes,
                ElementsAre("the native document cannot be read: its zlib data is cut off"));
}

TEST(NativeContainer, DamagedZlibFallsBackToThePage)
{
    std::string native = PackZlib(MakeText());
    native.replace(native.size() / 2, 40, std::string(40, '\xFF'));
    const OpenResult result = OpenBytes(WrapInPdf(native));
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_THAT(result.document.notes,
                ElementsAre("the native document cannot be read: its zlib data is damaged"));
}

TEST(NativeContainer, CutOffZstandardFallsBackToThePage)
{
    const std::string native = PackZstandard(MakeText());
    EXPECT_THAT(OpenBytes(WrapInPdf(native.substr(0, native.size() - 20))).document.notes,
                ElementsAre("the native document cannot be read: its zstd data is cut off"));
}

TEST(NativeContainer, DamagedZstandardFallsBackToThePage)
{
    std::string native = PackZstandard(MakeText());
    native[20] = '\x00';
    EXPECT_THAT(OpenBytes(WrapInPdf(native)).document.notes,
                ElementsAre("the native document cannot be read: its zstd data is damaged"));
}

TEST(NativeContainer, MissingBlockFallsBackToThePage)
{
    std::string pdf = WrapInPdf(PackPlain(MakeText()), 3);
    pdf.replace(pdf.find("/AIPrivateData3"), 15, "/AIPrivateDataX");
    const OpenResult result = OpenBytes(pdf);
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_THAT(result.document.notes,
                ElementsAre("the native document cannot be read: a block of it is missing"));
}

TEST(NativeContainer, PartWithoutAFormatMarkFallsBackToThePage)
{
    EXPECT_THAT(OpenBytes(WrapInPdf("no document")).document.notes,
                ElementsAre("the native document cannot be read: it has no format mark"));
}

TEST(NativeContainer, DamagedDataStreamFallsBackToTheComments)
{
    std::string eps = WrapInEps(MakeText());
    eps.replace(eps.find("%AI9_DataStream\r") + 40, 1, "\x7F");
    const Document document = OpenWithoutHelper(eps);
    EXPECT_EQ("dsc", document.reader);
    EXPECT_THAT(document.notes,
                ElementsAre("the native document cannot be read: its ASCII85 data is damaged",
                            "its comments name no font"));
}

TEST(NativeContainer, DataThatInflatesBeyondTheLimitIsRefused)
{
    Limits limits;
    limits.inflatedBytes = size_t{4} << 20;
    const std::string bomb(size_t{8} << 20, ' ');
    for (const std::string& packed : {PackZlib(bomb), PackZstandard(bomb)}) {
        EXPECT_EQ("too large: inflates to more than 4 MiB",
                  OpenBytes(WrapInPdf(packed), "made.ai", limits).error);
    }
    for (const std::string& eps : {WrapInEps(bomb), WrapInNewEps(bomb)}) {
        EXPECT_EQ("too large: inflates to more than 4 MiB",
                  OpenBytes(eps, "made.eps", limits).error);
    }
}
