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
