#include <gmock/gmock.h>

#include <future>
#include <string>
#include <vector>

#include "OpenBytes.h"
#include "PdfMaker.h"
#include "documents/OpenDocument.h"

using namespace documents;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

constexpr size_t kStep = 997;

std::string GetSample(const std::string& name) { return std::string(SAMPLES_FOLDER "/") + name; }

class NativeSample : public testing::TestWithParam<const char*> {};

class CutOffSample : public testing::TestWithParam<const char*> {};

}  // namespace

TEST(Samples, BusinessCardIsRead)
{
    const OpenResult result = OpenDocument(GetSample("business-card.ai"));
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_THAT(result.document.fonts,
                UnorderedElementsAre("YuseiMagic-Regular", "DejaVuSerif-Bold", "DejaVuSans"));
    EXPECT_THAT(result.document.linkedFiles, ElementsAre("leaflet.eps"));
    EXPECT_EQ("Headless Host", result.document.creator);
    EXPECT_EQ("", JoinNotes(result.document));
    EXPECT_EQ("native", result.document.reader);
    EXPECT_EQ("YuseiMagic-Regular:10 DejaVuSerif-Bold:8 | DejaVuSans:25", DescribeFrames(result));
}

TEST(Samples, LeafletIsRead)
{
    const OpenResult result = OpenDocument(GetSample("leaflet.eps"));
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_EQ(Kind::kEPS, result.document.kind);
    EXPECT_THAT(result.document.fonts, ElementsAre("DejaVuSans", "DejaVuSansMono"));
    EXPECT_THAT(result.document.linkedFiles, ElementsAre("missing-font.pdf"));
}

TEST(Samples, LetterheadIsRead)
{
    const OpenResult result = OpenDocument(GetSample("letterhead.ait"));
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_TRUE(result.document.isTemplate);
    EXPECT_THAT(result.document.linkedFiles, ElementsAre("business-card.ai", "business-card.ai"));
    EXPECT_EQ("native", result.document.reader);
    EXPECT_EQ("DejaVuSerif-Bold:19 YuseiMagic-Regular:20", DescribeFrames(result));
    EXPECT_EQ("", JoinNotes(result.document));
}

// Other programs read the pages of a native document, and this one does if the part is damaged.
TEST_P(NativeSample, PagesShowTheFontsOfTheNativePart)
{
    const std::string path = GetSample(GetParam());
    const OpenResult native = OpenDocument(path);
    std::string bytes = ReadWholeFile(path);
    const size_t place = bytes.find("/AIPrivateData1");
    ASSERT_NE(std::string::npos, place);
    bytes.replace(place, 15, "/AIPrivateDataX");
    const OpenResult page = OpenBytes(bytes);
    EXPECT_EQ("pdf", page.document.reader);
    EXPECT_EQ(native.document.fonts, page.document.fonts);
}

INSTANTIATE_TEST_SUITE_P(All, NativeSample, testing::Values("business-card.ai", "letterhead.ait"));

TEST(Samples, DocumentWithAMissingFontIsRead)
{
    const OpenResult result = OpenDocument(GetSample("missing-font.pdf"));
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_THAT(result.document.fonts, ElementsAre("DejaVuSans", "NoSuchFace-Regular"));
}

TEST(Samples, AreReadFromSeveralThreadsAtOnce)
{
    std::vector<std::future<size_t>> counts;
    for (int index = 0; index < 16; ++index) {
        counts.push_back(std::async(std::launch::async, [] {
            return OpenDocument(GetSample("business-card.ai")).document.fonts.size();
        }));
    }
    for (std::future<size_t>& count : counts) EXPECT_EQ(3U, count.get());
}

TEST_P(CutOffSample, IsReadOrRefusedAtEveryLength)
{
    const std::string bytes = ReadWholeFile(GetSample(GetParam()));
    ASSERT_GT(bytes.size(), kStep);
    for (size_t length = 0; length < bytes.size(); length += kStep) {
        const OpenResult result = OpenBytes(bytes.substr(0, length));
        EXPECT_EQ(result.error.empty(), result.ok) << length;
        EXPECT_EQ(std::string::npos, result.error.find('\n')) << length;
    }
}

TEST_P(CutOffSample, IsReadOrRefusedWithAByteInverted)
{
    const std::string bytes = ReadWholeFile(GetSample(GetParam()));
    for (size_t position = 0; position < bytes.size(); position += kStep / 4) {
        std::string damaged = bytes;
        damaged[position] = static_cast<char>(~damaged[position]);
        const OpenResult result = OpenBytes(damaged);
        EXPECT_EQ(result.error.empty(), result.ok) << position;
    }
}

INSTANTIATE_TEST_SUITE_P(All, CutOffSample,
                         testing::Values("business-card.ai", "leaflet.eps", "letterhead.ait",
                                         "missing-font.pdf"));
