// document-bench FOLDER [SECONDS [--native]]: measures for each reader how fast it reads its
// documents below FOLDER: files, pages and runs per second on one core, and the median and the 95th
// percentile of the time per file. Each reader runs for SECONDS (default 5). Ghostscript isn't
// used. With --native, prints as JSON how fast native documents are read and inflated (see
// NativeBench.h).
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NativeBench.h"
#include "documents/OpenDocument.h"
#include "documents/pdf/PdfFile.h"

namespace {

using Clock = std::chrono::steady_clock;

struct File {
    std::string bytes;
    size_t pages = 0;
    size_t runs = 0;
};

documents::Limits GetLimits()
{
    documents::Limits limits;
    limits.helperSeconds = 0;
    return limits;
}

size_t CountPages(const std::string& bytes)
{
    documents::PdfFile pdf(bytes);
    return pdf.Open().empty() ? pdf.GetPages().size() : 1;
}

double GetSeconds(Clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

void Measure(const std::string& reader, const std::vector<File>& files, double seconds)
{
    size_t fileCount = 0;
    size_t pageCount = 0;
    size_t runCount = 0;
    std::vector<double> times;
    const auto start = Clock::now();
    do {
        for (const File& file : files) {
            const auto before = Clock::now();
            const documents::OpenResult result =
                documents::OpenDocumentBytes(file.bytes, GetLimits());
            times.push_back(GetSeconds(Clock::now() - before));
            if (!result.ok) std::abort();  // main() has read it without an error
            ++fileCount;
            pageCount += file.pages;
            runCount += file.runs;
        }
    } while (GetSeconds(Clock::now() - start) < seconds);
    const double all = GetSeconds(Clock::now() - start);
    std::sort(times.begin(), times.end());
    std::printf("| %s | %zu | %.0f | %.0f | %.0f | %.2f | %.2f |\n", reader.c_str(), files.size(),
                static_cast<double>(fileCount) / all, static_cast<double>(pageCount) / all,
                static_cast<double>(runCount) / all, times[times.size() / 2] * 1000,
                times[times.size() * 95 / 100] * 1000);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        (void)std::fputs("usage: document-bench FOLDER [SECONDS [--native]]\n", stderr);
        return 2;
    }
    const double seconds = argc > 2 ? std::atof(argv[2]) : 5;
    const bool isNative = argc > 3 && std::string_view(argv[3]) == "--native";
    std::map<std::string, std::vector<File>> readers;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1])) {
        if (!entry.is_regular_file()) continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        File file;
        file.bytes.assign(std::istreambuf_iterator<char>(stream), {});
        const documents::OpenResult result = documents::OpenDocumentBytes(file.bytes, GetLimits());
        if (!result.ok || (isNative && result.document.reader != "native")) continue;
        file.pages = CountPages(file.bytes);
        for (const auto& frame : result.document.frames) file.runs += frame.runs.size();
        readers[result.document.reader].push_back(std::move(file));
    }
    if (isNative && !readers.empty()) {
        std::vector<std::string> files;
        for (File& file : readers["native"]) files.push_back(std::move(file.bytes));
        MeasureNative(files, seconds);
        return 0;
    }
    std::printf(
        "| reader | files | files/s | pages/s | runs/s | median ms | 95 %% ms |\n"
        "|---|---|---|---|---|---|---|\n");
    for (const auto& [reader, files] : readers) Measure(reader, files, seconds);
    return readers.empty() ? 1 : 0;
}
