#include "documents/native/NativeContainer.h"

#include <algorithm>
#include <memory>
#include <qpdf/Buffer.hh>
#include <stdexcept>

#include "base/Lines.h"
#include "documents/bytes/Decompress.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/native/NativeAdditions.h"
#include "documents/native/NativeKeys.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/PdfFile.h"

namespace documents {

namespace {

constexpr size_t kMostBlocks = 65536;

void SetBytes(NativePart& part, std::unique_ptr<ByteBuffer> bytes)
{
    part.bytes = std::move(bytes);
    part.text = part.bytes->GetView();
}

// Replaces the text by what is compressed after a mark in it, if there is one. The header before
// the mark repeats comments of the document and is dropped.
void Unpack(NativePart& part)
{
    const std::string_view text = part.text;
    const size_t zlib = base::FindLine(text, record::kCompressedData);
    // Packed data is long: what is after its mark isn't searched again.
    const size_t zstandard = base::FindLine(text.substr(0, zlib), record::kZStandardData);
    if (zlib == std::string_view::npos && zstandard == std::string_view::npos) return;
    auto unpacked = std::make_unique<ByteBuffer>();
    if (zlib < zstandard) {
        std::string_view packed = part.text.substr(zlib + record::kCompressedData.size());
        // Safe: zlib data begins with 0x78 or a similar byte, zstd data with 0x28, never with CR
        // or LF.
        packed.remove_prefix(std::min(packed.find_first_not_of("\r\n"), packed.size()));
        part.error = InflateZlib(packed, *unpacked);
    } else {
        std::string_view packed = part.text.substr(zstandard + record::kZStandardData.size());
        packed.remove_prefix(std::min(packed.find_first_not_of("\r\n"), packed.size()));
        part.error = DecompressZstandard(packed, *unpacked);
    }
    SetBytes(part, std::move(unpacked));
}

// Whether Flate is the only filter of a stream, without a predictor.
bool IsPlainFlate(QPDFObjectHandle dictionary)
{
    QPDFObjectHandle filter = dictionary.getKey("/Filter");
    if (filter.isArray() && filter.getArrayNItems() == 1) filter = filter.getArrayItem(0);
    return filter.isName() && filter.getName() == "/FlateDecode" &&
           dictionary.getKey("/DecodeParms").isNull();
}

// Returns false and leaves `joined` unchanged if the stream is damaged or large.
bool InflateBlock(QPDFObjectHandle block, ByteBuffer& joined)
{
    std::shared_ptr<Buffer> packed;
    try {
        packed = block.getRawStreamData();
    } catch (const std::runtime_error&) {
        return false;  // the PDF library says why when it reads the stream
    }
    const auto* const bytes = reinterpret_cast<const char*>(packed->getBuffer());
    return InflateAtOnce({bytes, packed->getSize()}, joined);
}

void AppendBlock(PdfFile& file, QPDFObjectHandle block, ByteBuffer& joined)
{
    const size_t start = joined.GetSize();
    if (!IsPlainFlate(block.getDict()) || !InflateBlock(block, joined)) {
        file.AppendStream(block, joined);
    }
    ReadBudget::Take(joined.GetSize() - start);  // the document's text, whatever it was packed in
}

NativePart JoinPrivateData(PdfFile& file)
{
    NativePart part;
    QPDFObjectHandle page = FindNativePage(file.GetPages());
    if (page.isNull()) return part;
    QPDFObjectHandle data =
        page.getKey(record::kPieceInfo).getKey(record::kProgramPiece).getKey(record::kPrivate);
    part.isThere = true;
    auto joined = std::make_unique<ByteBuffer>();
    for (size_t i = 1; i <= kMostBlocks; ++i) {
        QPDFObjectHandle block = GetKeyOrNull(data, record::kPrivateData + std::to_string(i));
        if (!block.isStream()) break;
        AppendBlock(file, block, *joined);
    }
    QPDFObjectHandle count = GetKeyOrNull(data, record::kBlockCount);
    if (count.isInteger() && count.getIntValue() > 0) {
        const std::string last = record::kPrivateData + std::to_string(count.getIntValue());
        if (!GetKeyOrNull(data, last).isStream()) part.error = "a block of it is missing";
    }
    SetBytes(part, std::move(joined));
    return part;
}

// `data` begins behind the mark of the stream.
NativePart DecodeDataStream(std::string_view data, bool isZlib)
{
    NativePart part;
    part.isThere = true;
    ByteBuffer packed;
    if (!DecodeAscii85(data, packed)) {
        part.error = "its ASCII85 data is damaged";
        return part;
    }
    auto unpacked = std::make_unique<ByteBuffer>();
    part.error = isZlib ? InflateZlib(packed.GetView(), *unpacked)
                        : DecompressZstandard(packed.GetView(), *unpacked);
    SetBytes(part, std::move(unpacked));
    return part;
}

NativePart FindInPostScript(std::string_view file)
{
    const size_t zlib = base::FindLine(file, record::kDataStream);
    if (zlib != std::string_view::npos) {
        return DecodeDataStream(file.substr(zlib + record::kDataStream.size()), true);
    }
    const size_t zstandard = base::FindLine(file, record::kZStandardStream);
    if (zstandard != std::string_view::npos) {
        const std::string_view before = file.substr(0, zstandard);
        NativePart part =
            DecodeDataStream(file.substr(zstandard + record::kZStandardStream.size()), false);
        const size_t format = base::FindLine(before, record::kFileFormat);
        if (format != std::string_view::npos) part.head = before.substr(format);
        return part;
    }
    NativePart part;
    // The mark must be in the header: a page of another program may embed such a file further on.
    const std::string_view header = file.substr(0, base::FindLine(file, "%%EndComments"));
    part.isThere = part.isBare =
        base::FindLine(header, record::kFileFormat) != std::string_view::npos;
    part.text = file;
    return part;
}

}  // namespace

NativePart FindNativePart(const DocumentSource& source)
{
    NativePart part =
        source.pdf != nullptr ? JoinPrivateData(*source.pdf) : FindInPostScript(source.postScript);
    if (part.error.empty() && !part.isBare) Unpack(part);
    return part;
}

}  // namespace documents
