#include "documents/bytes/Decompress.h"

#include <gmock/gmock.h>
#include <zlib.h>

#include <algorithm>
#include <string>

#include "documents/bytes/ReadBudget.h"
#include "documents/write/Compress.h"

using namespace documents;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr double kSeconds = 60;

std::string MakeLines(size_t count)
{
    std::string text;
    for (size_t i = 0; i < count; ++i) text += std::to_string(i * i % 977) + " 12.5 L\r";
    return text;
}

struct Answer {
    std::string error;
    std::string text;
    bool operator==(const Answer& other) const
    {
        return error == other.error && text == other.text;
    }
};

Answer Inflate(const std::string& packed)
{
    ByteBuffer buffer;
    buffer.Append("before ");
    const std::string error = InflateZlib(packed, buffer);
    return {error, std::string(buffer.GetView())};
}

// What zlib alone gives, in pieces of one byte.
Answer InflateSlowly(const std::string& packed)
{
    Answer answer;
    answer.text = "before ";
    z_stream stream = {};
    EXPECT_EQ(Z_OK, inflateInit(&stream));
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    int status = Z_OK;
    while (status == Z_OK) {
        char byte = 0;
        stream.next_out = reinterpret_cast<Bytef*>(&byte);
        stream.avail_out = 1;
        status = inflate(&stream, Z_NO_FLUSH);
        if (stream.avail_out == 0) answer.text += byte;
    }
    EXPECT_EQ(Z_OK, inflateEnd(&stream));
    if (status == Z_BUF_ERROR) answer.error = "its zlib data is cut off";
    if (status == Z_DATA_ERROR) answer.error = "its zlib data is damaged";
    return answer;
}

std::string Decode(std::string_view text, bool isGood = true)
{
    ByteBuffer buffer;
    EXPECT_EQ(isGood, DecodeAscii85(text, buffer));
    return std::string(buffer.GetView());
}

}  // namespace

TEST(Inflate, WholeStreamsAreInflatedAtOnce)
{
    for (const size_t count : {size_t{0}, size_t{1}, size_t{100}, size_t{50000}}) {
        const std::string text = MakeLines(count);
        ByteBuffer buffer;
        EXPECT_TRUE(InflateAtOnce(CompressZlib(text), buffer));
        EXPECT_EQ(text, buffer.GetView());
    }
}

TEST(Inflate, BytesAfterTheStreamAreIgnored)
{
    const std::string text = MakeLines(500);
    ByteBuffer buffer;
    EXPECT_TRUE(InflateAtOnce(CompressZlib(text) + "\rrest of the document", buffer));
    EXPECT_EQ(text, buffer.GetView());
}

TEST(Inflate, DataThatIsAThousandTimesAsLargeIsInflatedAtOnce)
{
    const std::string text(size_t{20} << 20, 'x');
    ByteBuffer buffer;
    EXPECT_TRUE(InflateAtOnce(CompressZlib(text), buffer));
    EXPECT_EQ(text, buffer.GetView());
}

TEST(Inflate, HugeDataIsInflatedInPieces)
{
    const std::string text(size_t{65} << 20, 'x');
    const std::string packed = CompressZlib(text);
    ByteBuffer buffer;
    EXPECT_FALSE(InflateAtOnce(packed, buffer));
    EXPECT_TRUE(buffer.IsEmpty());
    EXPECT_EQ("", InflateZlib(packed, buffer));
    EXPECT_EQ(text, buffer.GetView());
}

TEST(Inflate, OfACutOffStreamWhatIsThereIsKept)
{
    const std::string packed = CompressZlib(MakeLines(300));
    for (size_t size = 0; size < packed.size(); ++size) {
        const std::string part = packed.substr(0, size);
        ByteBuffer none;
        EXPECT_FALSE(InflateAtOnce(part, none));
        EXPECT_TRUE(none.IsEmpty());
        const Answer answer = Inflate(part);
        EXPECT_EQ("its zlib data is cut off", answer.error) << size;
        EXPECT_TRUE(InflateSlowly(part) == answer) << size;
    }
}

TEST(Inflate, OfADamagedStreamWhatIsBeforeTheDamageIsKept)
{
    const std::string packed = CompressZlib(MakeLines(300));
    size_t damaged = 0;
    for (size_t bit = 0; bit < packed.size() * 8; ++bit) {
        std::string part = packed;
        part[bit / 8] = static_cast<char>(part[bit / 8] ^ (1 << bit % 8));
        const Answer answer = Inflate(part);
        // The reference calls a stream that needs a dictionary neither.
        Answer expected = InflateSlowly(part);
        if (expected.error.empty()) expected.error = answer.error;
        EXPECT_TRUE(expected == answer) << bit << ": " << answer.error;
        if (!answer.error.empty()) ++damaged;
    }
    // All but the bits of the header that don't matter.
    EXPECT_LT(packed.size() * 8 - 8, damaged);
}

TEST(Inflate, TheBudgetLimitsWhatIsInflated)
{
    const std::string text = MakeLines(200000);
    const std::string packed = CompressZlib(text);
    {
        const ReadBudget budget(text.size(), kSeconds);
        ByteBuffer buffer;
        EXPECT_EQ("", InflateZlib(packed, buffer));
        EXPECT_EQ(text, buffer.GetView());
        EXPECT_EQ(0U, ReadBudget::GetLeft());
    }
    const ReadBudget budget(text.size() - 1, kSeconds);
    ByteBuffer buffer;
    EXPECT_FALSE(InflateAtOnce(packed, buffer));
    EXPECT_EQ(text.size() - 1, ReadBudget::GetLeft());
    try {
        (void)InflateZlib(packed, buffer);
        ADD_FAILURE() << "the limit was ignored";
    } catch (const LimitExceeded& exception) {
        EXPECT_THAT(exception.what(), StartsWith("too large: inflates to more than"));
    }
}

TEST(Inflate, TheTimeLimitsWhatIsInflated)
{
    const ReadBudget budget(1 << 20, 0);
    ByteBuffer buffer;
    try {
        (void)InflateZlib(CompressZlib(MakeLines(10)), buffer);
        ADD_FAILURE() << "the limit was ignored";
    } catch (const LimitExceeded& exception) {
        EXPECT_THAT(exception.what(), HasSubstr("takes longer than"));
    }
}

TEST(Ascii85, GroupsMayBeCutByLineEndsAndMarks)
{
    const std::string digits = "87cURD]i,\"Ebo80";
    ASSERT_EQ("Hello World!", Decode(digits));
    for (size_t place = 0; place <= digits.size(); ++place) {
        for (const std::string gap : {" ", "\r", "\n%", "\r\n%", "\r\r", "\r \t"}) {
            std::string text = digits;
            EXPECT_EQ("Hello World!", Decode(text.insert(place, gap))) << place << gap;
        }
        EXPECT_EQ(Decode(digits.substr(0, place)), Decode(digits.substr(0, place) + "~>" + digits));
    }
}

TEST(Ascii85, APercentSignIsAMarkOnlyAtTheStartOfALine)
{
    EXPECT_EQ(Decode("87cUR"), Decode("%87cUR"));
    EXPECT_EQ(Decode("87cUR87cUR"), Decode("87cUR\n%87cUR"));
    EXPECT_NE(Decode("87cUR87cUR"), Decode("87cUR%87cUR"));
    EXPECT_EQ(Decode("!%7cU"), Decode("!\n%%7cU"));
}

TEST(Ascii85, ZeroWordsAndInvalidCharacters)
{
    EXPECT_EQ(std::string(4, '\0') + "Hell", Decode("z87cUR"));
    EXPECT_EQ("Hell", Decode("87cURv87cUR", false));
    EXPECT_EQ("Hell" + std::string(4, '\0'), Decode("87cURz\x80", false));
    // Within a group, z is no zero word.
    EXPECT_EQ(std::string(3, '\xff').substr(0, 0), Decode("8z", false));
}

TEST(Ascii85, LongTextIsDecodedToItsEnd)
{
    std::string text;
    std::string bytes;
    for (size_t i = 0; i < 5000; ++i) {
        text += i % 7 == 0 ? "87cUR\n%" : "87cUR";
        bytes += "Hell";
    }
    EXPECT_EQ(bytes, Decode(text));
}
