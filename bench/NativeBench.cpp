#include "NativeBench.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <numeric>
#include <qpdf/Buffer.hh>
#include <string_view>

#include "base/Lines.h"
#include "documents/OpenDocument.h"
#include "documents/bytes/Decompress.h"
#include "documents/native/NativeAdditions.h"
#include "documents/native/NativeKeys.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/PdfFile.h"

namespace {

namespace record = documents::record;

struct PackedStream {
    std::string bytes;
    bool isZlib = true;  // else zstd
};

void Inflate(const PackedStream& stream, documents::ByteBuffer& text)
{
    const std::string error = stream.isZlib ? documents::InflateZlib(stream.bytes, text)
                                            : documents::DecompressZstandard(stream.bytes, text);
    if (!error.empty()) std::abort();  // the document was read without an error
}

// Adds the stream after this mark, if `text` has it.
void AddMarked(std::string_view text, std::string_view mark, bool isZlib,
               std::vector<PackedStream>& streams)
{
    const size_t place = base::FindLine(text, mark);
    if (place == std::string_view::npos) return;
    std::string_view packed = text.substr(place + mark.size());
    packed.remove_prefix(std::min(packed.find_first_not_of("\r\n"), packed.size()));
    streams.push_back({std::string(packed), isZlib});
}

void AddMarked(std::string_view text, std::vector<PackedStream>& streams)
{
    const size_t before = streams.size();
    AddMarked(text, record::kCompressedData, true, streams);
    if (streams.size() == before) AddMarked(text, record::kZStandardData, false, streams);
}

void AddStreamsOfPdf(std::string_view file, std::vector<PackedStream>& streams)
{
    documents::PdfFile pdf(file);
    if (!pdf.Open().empty()) return;
    QPDFObjectHandle page = documents::FindNativePage(pdf.GetPages());
    if (page.isNull()) return;
    QPDFObjectHandle data =
        page.getKey(record::kPieceInfo).getKey(record::kProgramPiece).getKey(record::kPrivate);
    documents::ByteBuffer joined;
    for (size_t i = 1;; ++i) {
        QPDFObjectHandle block =
            documents::GetKeyOrNull(data, record::kPrivateData + std::to_string(i));
        if (!block.isStream()) break;
        const auto raw = block.getRawStreamData();
        const std::string bytes(reinterpret_cast<const char*>(raw->getBuffer()), raw->getSize());
        if (!block.getDict().getKey("/Filter").isNull()) streams.push_back({bytes, true});
        pdf.AppendStream(block, joined);
    }
    AddMarked(joined.GetView(), streams);
}

void AddStreamsOfPostScript(std::string_view file, std::vector<PackedStream>& streams)
{
    for (const bool isZlib : {true, false}) {
        const std::string_view mark = isZlib ? record::kDataStream : record::kZStandardStream;
        const size_t place = base::FindLine(file, mark);
        if (place == std::string_view::npos) continue;
        documents::ByteBuffer packed;
        documents::ByteBuffer text;
        if (!documents::DecodeAscii85(file.substr(place + mark.size()), packed)) return;
        streams.push_back({std::string(packed.GetView()), isZlib});
        Inflate(streams.back(), text);
        AddMarked(text.GetView(), streams);
        return;
    }
}

std::vector<PackedStream> FindStreams(std::string_view file)
{
    std::vector<PackedStream> streams;
    if (file.substr(0, 1024).find("%PDF-") != std::string_view::npos) {
        AddStreamsOfPdf(file, streams);
    } else {
        AddStreamsOfPostScript(file, streams);
    }
    return streams;
}

double GetCpuSeconds()
{
    timespec time = {};
    (void)clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);  // this clock always exists
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double GetMedian(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

void MeasureNative(const std::vector<std::string>& files, double seconds)
{
    documents::Limits limits;
    limits.helperSeconds = 0;
    std::vector<std::vector<PackedStream>> streams;
    for (const std::string& file : files) streams.push_back(FindStreams(file));
    constexpr double kNever = 1e9;
    std::vector<double> reading(files.size(), kNever);
    std::vector<double> inflating(files.size(), kNever);
    const double start = GetCpuSeconds();
    do {
        for (size_t i = 0; i < files.size(); ++i) {
            const double first = GetCpuSeconds();
            if (!documents::OpenDocumentBytes(files[i], limits).ok) std::abort();
            const double second = GetCpuSeconds();
            for (const PackedStream& stream : streams[i]) {
                documents::ByteBuffer text;
                Inflate(stream, text);
            }
            reading[i] = std::min(reading[i], second - first);
            inflating[i] = std::min(inflating[i], GetCpuSeconds() - second);
        }
    } while (GetCpuSeconds() - start < seconds);
    std::printf(R"({"files": %zu, "median": %.9f, "inflate median": %.9f, "sum": %.9f, )"
                R"("inflate sum": %.9f})"
                "\n",
                files.size(), GetMedian(reading), GetMedian(inflating),
                std::accumulate(reading.begin(), reading.end(), 0.0),
                std::accumulate(inflating.begin(), inflating.end(), 0.0));
}
