// For any input, a reader must open the document or return one line that says why not, without a
// crash and within its limits. Built once per reader: FUZZ_NATIVE reads the input as the text of a
// native document and as a text tree, the others read whole files.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/Utf8.h"
#include "documents/OpenDocument.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/native/NativeScan.h"
#include "documents/native/NativeTextTree.h"

namespace {

void Require(bool condition)
{
    if (!condition) std::abort();
}

documents::Limits GetLimits()
{
    documents::Limits limits;
    limits.inflatedBytes = size_t{32} << 20;
    limits.helperSeconds = 0;  // Ghostscript isn't tested here
    return limits;
}

void CheckResult(const documents::OpenResult& result)
{
    Require(result.ok == result.error.empty());
    Require(result.error.find('\n') == std::string::npos);
    for (const documents::TextFrame& frame : result.document.frames) {
        Require(frame.story < result.document.stories.size());
        for (const documents::TextRun& run : frame.runs) Require(run.length > 0);
    }
    for (const std::string& font : result.document.fonts) {
        Require(font == base::ToValidUtf8(font));
    }
}

[[maybe_unused]] void ReadFile(std::string_view bytes)
{
    CheckResult(documents::OpenDocumentBytes(bytes, GetLimits()));
}

[[maybe_unused]] void ReadNativeText(std::string_view bytes)
{
    const documents::ReadBudget budget(GetLimits().inflatedBytes, GetLimits().seconds);
    try {
        (void)documents::ScanNative(bytes);  // its result is checked below, as part of a whole file
        const documents::NativeTextTree tree(bytes);
        for (size_t i = 0; i < tree.GetStories().size(); ++i) {
            for (size_t frame = 0; frame < 3; ++frame) {
                size_t shown = 0;
                for (const auto& run : tree.GetFrameRuns(i, frame)) shown += run.length;
                size_t all = 0;
                for (const auto& run : tree.GetStories()[i].runs) all += run.length;
                Require(shown <= all);
            }
        }
    } catch (const documents::LimitExceeded&) {
        // A limit was reached and reported, as it should be.
        return;
    }
    ReadFile("%!PS-Adobe-3.0\n%AI5_FileFormat 7.0\n%%EndComments\n" + std::string(bytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
#if defined(FUZZ_NATIVE)
    ReadNativeText(bytes);
    ReadFile(bytes);
#elif defined(FUZZ_PDF)
    ReadFile("%PDF-1.7\n" + std::string(bytes));
#else
    ReadFile("%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: A\n" + std::string(bytes));
#endif
    return 0;
}
