#include "documents/pdf/filters/StreamFilters.h"

#include <gtest/gtest.h>

#include <qpdf/Pl_String.hh>

#include "PdfMaker.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/filters/LzwDecoder.h"
#include "documents/pdf/filters/PngPredictor.h"

using namespace documents;

namespace {

std::string RunThrough(Pipeline& pipeline, std::string& output, const std::string& input)
{
    pipeline.write(reinterpret_cast<const unsigned char*>(input.data()), input.size());
    pipeline.finish();
    return output;
}

std::string DecodeLzw(const std::string& input)
{
    std::string output;
    Pl_String sink("sink", nullptr, output);
    LzwDecoder decoder(&sink, true);
    return RunThrough(decoder, output, input);
}

std::string Unpredict(const std::string& input, size_t rowBytes, size_t pixelBytes)
{
    std::string output;
    Pl_String sink("sink", nullptr, output);
    PngPredictor predictor(&sink, rowBytes, pixelBytes);
    return RunThrough(predictor, output, input);
}

}  // namespace

TEST(LzwDecoder, DecodesTheExampleOfThePdfReference)
{
    EXPECT_EQ(std::string("\x2D\x2D\x2D\x2D\x2D\x41\x2D\x2D\x2D\x42"),
              DecodeLzw("\x80\x0B\x60\x50\x22\x0C\x0C\x85\x01"));
}

TEST(LzwDecoder, CodeOutOfRangeThrows)
{
    // The code that clears the table, then code 300.
    EXPECT_THROW(DecodeLzw(std::string("\x80\x4B\x00", 3)), std::runtime_error);
}

TEST(LzwDecoder, DecodesOrRefusesAnyBytes)
{
    unsigned state = 1;
    for (int round = 0; round < 200; ++round) {
        std::string bytes(300, '\0');
        for (char& c : bytes) {
            state = state * 1103515245U + 12345U;
            c = static_cast<char>(state >> 16);
        }
        try {
            EXPECT_LT(DecodeLzw(bytes).size(), 300U * 4096U);
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ("LZW code out of range", error.what());
        }
    }
}

TEST(PngPredictor, ReversesEveryFilter)
{
    const std::string rows = std::string("\0\1\2\3", 4) + std::string("\1\1\1\1", 4) +
                             std::string("\2\1\1\1", 4) + std::string("\3\1\1\1", 4) +
                             std::string("\4\1\1\1", 4);
    const std::string expected = std::string("\1\2\3") + "\1\2\3" + "\2\3\4" + "\2\3\4" + "\3\4\5";
    EXPECT_EQ(expected, Unpredict(rows, 3, 1));
}

TEST(PngPredictor, CutOffRowIsFilledWithZeros)
{
    EXPECT_EQ(std::string("\5\0\0", 3), Unpredict(std::string("\0\5", 2), 3, 1));
    EXPECT_EQ("", Unpredict("", 3, 1));
}

TEST(StreamFilters, ContentIsReadThroughEveryFilter)
{
    const std::string content = "BT /F1 9 Tf (ab) Tj ET";
    EXPECT_EQ(
        "Alpha-Regular:2",
        DescribeFrames(PdfMaker().SetStream(4, "/Filter /FlateDecode", Deflate(content)).Open()));
    const std::string runs = static_cast<char>(content.size() - 1) + content + '\x80';
    EXPECT_EQ("Alpha-Regular:2",
              DescribeFrames(PdfMaker().SetStream(4, "/Filter /RunLengthDecode", runs).Open()));
    EXPECT_EQ("Alpha-Regular:2", DescribeFrames(PdfMaker()
                                                    .SetStream(4,
                                                               "/Filter [/FlateDecode "
                                                               "/RunLengthDecode]",
                                                               Deflate(runs))
                                                    .Open()));
}

TEST(StreamFilters, PredictedContentIsRead)
{
    const std::string content =
        std::string(1, '\0') + "BT /F1 9 Tf " + std::string(1, '\0') + "(ab) Tj ET  ";
    EXPECT_EQ("Alpha-Regular:2", DescribeFrames(PdfMaker()
                                                    .SetStream(4,
                                                               "/Filter /FlateDecode /DecodeParms "
                                                               "<< /Predictor 12 /Columns 12 >>",
                                                               Deflate(content))
                                                    .Open()));
}

TEST(ReadBudget, ThrowsFromWhenItIsExceeded)
{
    const ReadBudget budget(10, 1e9);
    ReadBudget::Take(10);
    EXPECT_FALSE(budget.IsExceeded());
    EXPECT_THROW(ReadBudget::Take(1), LimitExceeded);
    EXPECT_THROW(ReadBudget::Take(0), LimitExceeded);
    EXPECT_TRUE(budget.IsExceeded());
}

TEST(ReadBudget, ThrowsWhenTheTimeIsOver)
{
    const ReadBudget budget(10, 0);
    EXPECT_THROW(ReadBudget::Take(1), LimitExceeded);
    EXPECT_TRUE(budget.IsExceeded());
}

TEST(ReadBudget, NothingIsLimitedWithoutOne) { EXPECT_NO_THROW(ReadBudget::Take(1U << 30)); }
