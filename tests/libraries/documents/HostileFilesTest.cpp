#include <gmock/gmock.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

constexpr size_t kLimit = size_t{8} << 20;

Limits GetLimits()
{
    Limits limits;
    limits.inflatedBytes = kLimit;
    return limits;
}

std::string Repeat(const std::string& text, size_t count)
{
    std::string all;
    for (size_t index = 0; index < count; ++index) all += text;
    return all;
}

constexpr char kLongNames[] = "font names that are empty or have more than 127 bytes are left out";

// Whether a file that is in memory can be read with so much more of it.
bool IsReadWithin(const std::string& bytes, size_t memory)
{
    const pid_t child = fork();
    if (child == 0) {
        std::ifstream sizes("/proc/self/statm");
        size_t pages = 0;
        sizes >> pages;
        const size_t most = pages * static_cast<size_t>(sysconf(_SC_PAGESIZE)) + memory;
        const rlimit limit = {most, most};
        if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(2);
        Limits limits;
        limits.helperSeconds = 0;
        _exit(OpenDocumentBytes(bytes, limits).ok ? 0 : 1);
    }
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

TEST(HostileFiles, LineOfTheSizeOfTheFileIsNotCopied)
{
    if (IS_SANITIZED) GTEST_SKIP() << "a sanitizer needs more memory than the limit";
    // Large blocks that the test has freed go back to the system, else the child could reuse them.
    ASSERT_EQ(1, mallopt(M_MMAP_THRESHOLD, 128 << 10));
    constexpr size_t kFile = size_t{12} << 20;
    const std::string head = "%!PS-Adobe-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n";
    for (const char* start :
         {"%%DocumentFonts: ", "%%DocumentFonts: (", "%%DocumentNeededResources: font ",
          "%%DocumentNeededResources: file (", "%%BeginFont: ", "%%Creator: (",
          "%%IncludeFile: ", "%%DocumentFiles: (", "%%BeginData: ", "%HeadlessHost_Text: 1 ",
          "%HeadlessHost_File: ("}) {
        const std::string file = head + start + std::string(kFile, 'A');
        EXPECT_TRUE(IsReadWithin(file, kFile / 4)) << start;
    }
    const std::string old = head + "%AI5_FileFormat 4.0\n%%EndComments\n0 To\n";
    for (const char* start : {"/", "[/", "%%IncludeFile: ("}) {
        for (const char* end : {" 11 8 -2 Tf\n(a) Tx\nTO\n", "/A 0 0 1 TZ\n"}) {
            const std::string file = old + start + std::string(kFile, 'A') + end;
            EXPECT_TRUE(IsReadWithin(file, kFile / 4)) << start << end;
        }
    }
    const std::string text = old + "(" + std::string(kFile, 'A');
    EXPECT_TRUE(IsReadWithin(text + ") Tx\nTO\n", kFile / 4));
    EXPECT_TRUE(IsReadWithin(text + ") 0 XG\n", kFile / 4));
    // A string that goes on in the next line is copied once, when the lines are joined.
    EXPECT_TRUE(IsReadWithin(text + "\\\n", kFile * 5 / 4));
    EXPECT_TRUE(IsReadWithin(text + "\\\n) Tx\nTO\n", kFile * 5 / 4));
}

TEST(HostileFiles, CommentsThatNameTooMuchAreRefused)
{
    std::string file = "%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts:";
    for (int i = 0; i < 1000000; ++i) file += " F" + std::to_string(i);
    EXPECT_EQ("too large: its comments name more than can be read", OpenBytes(file).error);
}

TEST(HostileFiles, NameThatIsTooLongIsNoFont)
{
    const std::string most(127, 'A');
    const std::string more(128, 'A');
    const auto test = [&](const OpenResult& result) {
        EXPECT_THAT(result.document.fonts, ElementsAre(most));
        EXPECT_THAT(result.document.notes, ElementsAre(kLongNames));
        EXPECT_EQ(1U, result.document.frames.size());
    };
    test(OpenBytes("%!PS-Adobe-3.0\n%%DocumentFonts: ABCDEF+" + most + " " + more + "\n"));
    test(OpenNative(NativeMaker()
                        .SetFonts({most, more})
                        .AddStyle(0)
                        .AddStory({{0, 2}, {1, 3}, {0, 2}})
                        .AddFrame(0)));
    test(OpenNative(NativeMaker().AddLines("0 To\n/_" + most + " 9 8 -2 Tf\n(a) Tx\n/_" + more +
                                           " 9 8 -2 Tf\n(b) Tx\nTO")));
    test(PdfMaker()
             .Set(10, "<< /Type /Font /Subtype /TrueType /BaseFont /ABCDEF+" + most + " >>")
             .Set(11, "<< /Type /Font /Subtype /Type1 /BaseFont /" + more + " >>")
             .SetContent("BT /F1 9 Tf (a) Tj /F2 9 Tf (b) Tj ET")
             .Open());
}

TEST(HostileFiles, ContentThatInflatesBeyondTheLimitIsRefused)
{
    const std::string bomb = Deflate(std::string(kLimit + 1, ' '));
    EXPECT_EQ("too large: inflates to more than 8 MiB",
              PdfMaker().SetStream(4, "/Filter /FlateDecode", bomb).Open(GetLimits()).error);
}

TEST(HostileFiles, ReadingEndsWhenTheTimeIsOver)
{
    Limits limits;
    limits.seconds = 0;
    EXPECT_EQ("takes longer than 0 s to read", PdfMaker().Open(limits).error);
}

TEST(HostileFiles, ContentThatInflatesTwiceIsLimited)
{
    const std::string bomb = Deflate(Deflate(std::string(200U << 20, ' ')));
    EXPECT_LT(bomb.size(), 20000U);
    EXPECT_EQ("too large: inflates to more than 8 MiB",
              PdfMaker()
                  .SetStream(4, "/Filter [/FlateDecode /FlateDecode]", bomb)
                  .Open(GetLimits())
                  .error);
}

TEST(HostileFiles, ObjectStreamThatInflatesBeyondTheLimitIsRefused)
{
    // A cross-reference stream puts the page into an object stream full of spaces.
    const std::string objects = "3 0 << /Type /Page >>" + std::string(kLimit, ' ');
    std::string pdf = "%PDF-1.5\n";
    const auto add = [&pdf](const std::string& text) {
        const size_t offset = pdf.size();
        pdf += text;
        return offset;
    };
    const std::string packed = Deflate(objects);
    const size_t offsets[] = {
        add("1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n"),
        add("2 0 obj\n<< /Type /Pages /Kids [3 0 R] /Count 1 >>\nendobj\n"),
        add("4 0 obj\n<< /Type /ObjStm /N 1 /First 4 /Filter /FlateDecode /Length " +
            std::to_string(packed.size()) + " >>\nstream\n" + packed + "\nendstream\nendobj\n"),
    };
    const size_t start = pdf.size();
    const auto entry = [](int type, size_t offset, int index) {
        return std::string{static_cast<char>(type), static_cast<char>(offset >> 16),
                           static_cast<char>(offset >> 8), static_cast<char>(offset),
                           static_cast<char>(index)};
    };
    const std::string table = entry(0, 0, 0) + entry(1, offsets[0], 0) + entry(1, offsets[1], 0) +
                              entry(2, 4, 0) + entry(1, offsets[2], 0) + entry(1, start, 0);
    pdf += "5 0 obj\n<< /Type /XRef /Size 6 /W [1 3 1] /Root 1 0 R /Length " +
           std::to_string(table.size()) + " >>\nstream\n" + table +
           "\nendstream\nendobj\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
    EXPECT_EQ("too large: inflates to more than 8 MiB", OpenBytes(pdf, "a", GetLimits()).error);
    EXPECT_TRUE(OpenBytes(pdf).ok);
}

TEST(HostileFiles, ContentOfAllPagesTogetherIsLimited)
{
    constexpr int kPages = 200;
    PdfMaker maker;
    std::string kids;
    for (int page = 0; page < kPages; ++page) {
        kids += std::to_string(100 + page) + " 0 R ";
        maker.Set(100 + page, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R >>");
    }
    maker.Set(2, "<< /Type /Pages /Kids [" + kids + "] /Count 200 >>");
    maker.SetContent(std::string(100000, ' '));
    EXPECT_EQ("too large: has more than 8 MiB of content", maker.Open(GetLimits()).error);
}

TEST(HostileFiles, FormsThatDoubleAtEachLevelAreReadOnce)
{
    PdfMaker maker;
    maker.AddResources("/XObject << /X 100 0 R >>").SetContent("/X Do");
    for (int level = 100; level < 140; ++level) {
        maker.SetStream(level,
                        "/Subtype /Form /Resources << /Font << /F1 11 0 R >> /XObject << /X " +
                            std::to_string(level + 1) + " 0 R >> >>",
                        "/X Do /X Do");
    }
    maker.SetStream(140, "/Subtype /Form /Resources << /Font << /F1 11 0 R >> >>",
                    "BT /F1 9 Tf (b) Tj ET");
    EXPECT_EQ("Beta-Bold:1", DescribeFrames(maker.Open()));
}

TEST(HostileFiles, FormsNestedTooDeeplyAreNoted)
{
    PdfMaker maker;
    maker.AddResources("/XObject << /X 100 0 R >>").SetContent("/X Do BT /F1 9 Tf (a) Tj ET");
    for (int level = 100; level < 300; ++level) {
        maker.SetStream(level,
                        "/Subtype /Form /Resources << /XObject << /X " + std::to_string(level + 1) +
                            " 0 R >> >>",
                        "/X Do");
    }
    maker.SetStream(300, "/Subtype /Form", "");
    const OpenResult result = maker.Open();
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
    EXPECT_THAT(result.document.notes,
                Contains("objects drawn within objects are nested too deeply"));
}

TEST(HostileFiles, DeepNestingInContentIsSkipped)
{
    constexpr size_t kDepth = 1000000;
    EXPECT_EQ("Alpha-Regular:1",
              DescribeContent(Repeat("[", kDepth) + Repeat("<<", kDepth) +
                              " m BT /F1 9 Tf (a) Tj ET " + std::string(kDepth, '(')));
}

TEST(HostileFiles, ManySavedStatesAreRestored)
{
    EXPECT_EQ("Alpha-Regular:1", DescribeContent("/F1 9 Tf " + Repeat("q ", 300000) + "/F2 9 Tf " +
                                                 Repeat("Q ", 300000) + "BT (a) Tj ET"));
}

TEST(HostileFiles, DeepNestingInObjectsIsSkipped)
{
    const OpenResult result = PdfMaker()
                                  .AddPageEntries("/X 20 0 R")
                                  .Set(20, Repeat("[", 200000) + Repeat("]", 200000))
                                  .SetContent("BT /F1 9 Tf (a) Tj ET")
                                  .Open();
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
}

TEST(HostileFiles, PagesOfATreeThatContainsItselfAreFoundByTheirType)
{
    const OpenResult result = PdfMaker()
                                  .Set(2, "<< /Type /Pages /Kids [2 0 R 2 0 R] /Count 2 >>")
                                  .SetContent("BT /F1 9 Tf (a) Tj ET")
                                  .Open();
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
    EXPECT_THAT(result.document.notes, Contains(StartsWith("damaged: ")));
}

TEST(HostileFiles, PageTreeWithoutAnyPageIsRefused)
{
    const OpenResult result =
        PdfMaker().Set(2, "<< /Type /Pages /Kids [2 0 R] /Count 1 >>").Set(3, "null").Open();
    EXPECT_THAT(result.error, StartsWith("damaged: "));
}

TEST(HostileFiles, FileWithoutTrailerIsRecovered)
{
    const std::string pdf = PdfMaker().SetContent("BT /F1 9 Tf (a) Tj ET").Make();
    const OpenResult result = OpenBytes(pdf.substr(0, pdf.rfind("xref\n0 1\n")));
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
    EXPECT_THAT(result.document.notes,
                Contains("cut off, and the rest cannot be read: it has no trailer"));
}

TEST(HostileFiles, HugeCountsAndLengthsAreIgnored)
{
    PdfMaker maker;
    maker.Set(2, "<< /Type /Pages /Kids [3 0 R] /Count 2147483647 >>");
    maker.Set(4, "<< /Length 2147483647 >>\nstream\nBT /F1 9 Tf (a) Tj ET\nendstream");
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(maker.Open()));
}

TEST(HostileFiles, HugePredictorRowIsNoted)
{
    const OpenResult result =
        PdfMaker()
            .SetStream(4,
                       "/Filter /FlateDecode /DecodeParms << /Predictor 12 /Columns "
                       "2147483647 /Colors 2147483647 >>",
                       Deflate("BT ET"))
            .Open();
    EXPECT_TRUE(result.ok);
    EXPECT_THAT(result.document.notes, Contains("streams that cannot be decoded completely: 1"));
}

TEST(HostileFiles, EntriesOfWrongTypesAreIgnored)
{
    const OpenResult result = PdfMaker()
                                  .Set(1, "<< /Type /Catalog /Pages 2 0 R /Metadata 7 >>")
                                  .Set(5, "<< /Font [1 2] /XObject 9 /ExtGState (x) /Pattern /P >>")
                                  .AddPageEntries("/Annots << >> /PieceInfo [1]")
                                  .AddTrailerEntries("/Info 5")
                                  .SetContent("/F1 Tf (a) Tj /X Do /G gs /P scn Do gs scn Tf")
                                  .Open();
    EXPECT_TRUE(result.ok) << result.error;
}

TEST(HostileFiles, FontsOfWrongTypesAreIgnored)
{
    for (const char* font :
         {"null", "[]", "<< >>", "<< /Subtype 5 /BaseFont (x) >>",
          "<< /Subtype /Type0 /DescendantFonts 7 >>", "<< /Subtype /Type0 /DescendantFonts [] >>",
          "<< /Subtype /Type0 /DescendantFonts [10 0 R] >>"}) {
        EXPECT_EQ(
            "", DescribeFrames(PdfMaker().Set(10, font).SetContent("BT /F1 9 Tf (a) Tj ET").Open()))
            << font;
    }
}
