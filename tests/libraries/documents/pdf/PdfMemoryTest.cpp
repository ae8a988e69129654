#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;

namespace {

// Under a sanitizer the limit would fail, and its shadow memory would be measured.
constexpr bool kMeasuresMemory = !IS_SANITIZED;

struct ProcessResult {
    std::string text;
    size_t peakBytes = 0;
};

// Opens `pdf` in a process of its own with at most `dataBytes` of private memory, and returns what
// DescribeFrames gives.
ProcessResult OpenInProcess(const std::string& pdf, size_t dataBytes)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("made.pdf", pdf);
    const std::string answer = folder.Path() + "/answer";
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit = {dataBytes, dataBytes};
        if (setrlimit(RLIMIT_DATA, &limit) != 0) _exit(1);
        const std::string text = DescribeFrames(OpenDocument(path));
        (void)folder.Write("answer", text);
        _exit(0);
    }
    int status = 0;
    rusage usage = {};
    EXPECT_EQ(child, wait4(child, &status, 0, &usage));
    EXPECT_EQ(0, status);
    return {ReadWholeFile(answer), static_cast<size_t>(usage.ru_maxrss) << 10};
}

// Content of `bytes` spaces.
std::string MakeLargePdf(size_t bytes)
{
    return PdfMaker()
        .SetStream(4, "/Filter /FlateDecode",
                   Deflate(std::string(bytes, ' ') + "BT /F1 9 Tf (a) Tj ET", 1))
        .Make();
}

}  // namespace

TEST(PdfMemory, AFileThatNeedsMoreMemoryThanThereIsIsTooLarge)
{
    if (!kMeasuresMemory) GTEST_SKIP() << "a sanitizer needs the memory";
    const std::string pdf = MakeLargePdf(size_t{100} << 20);
    EXPECT_EQ("error: too large: not enough memory", OpenInProcess(pdf, size_t{64} << 20).text);
    EXPECT_EQ("Alpha-Regular:1", OpenInProcess(pdf, size_t{200} << 20).text);
}

TEST(PdfMemory, ABombIsRefusedBelowTheMemoryOfTheProgram)
{
    if (!kMeasuresMemory) GTEST_SKIP() << "a sanitizer needs the memory";
    const ProcessResult result = OpenInProcess(MakeLargePdf(size_t{600} << 20), RLIM_INFINITY);
    EXPECT_EQ("error: too large: inflates to more than 512 MiB", result.text);
    EXPECT_GT(size_t{800} << 20, result.peakBytes);
}

TEST(PdfMemory, AnObjectStreamIsLimited)
{
    // The library reads the cross-reference stream first, and takes it as a whole.
    const std::string table = Deflate(std::string(size_t{100} << 20, '\0'), 1);
    std::string pdf = "%PDF-1.5\n";
    const size_t start = pdf.size();
    pdf += "5 0 obj\n<< /Type /XRef /Size 6 /W [1 3 1] /Root 1 0 R /Filter /FlateDecode /Length " +
           std::to_string(table.size()) + " >>\nstream\n" + table +
           "\nendstream\nendobj\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
    EXPECT_EQ("too large: an object stream inflates to more than 64 MiB", OpenBytes(pdf).error);
}
