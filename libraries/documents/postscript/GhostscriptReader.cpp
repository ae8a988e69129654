#include "documents/postscript/GhostscriptReader.h"

#include "documents/pdf/PdfFile.h"
#include "documents/pdf/PdfReader.h"
#include "documents/postscript/Ghostscript.h"

namespace documents {

ReadResult ReadThroughGhostscript(const DocumentSource& source, const Limits& limits,
                                  Document& document)
{
    if (source.pdf != nullptr) return {};
    // A time of 0 is the choice of whoever asks, nothing to be told of.
    if (limits.helperSeconds <= 0) return {};
    const auto fail = [](const std::string& reason) {
        return ReadResult{ReadStatus::kFailed, "no comment tells of fonts, and " + reason};
    };
    const GhostscriptResult drawn = DrawWithGhostscript(source.postScript, limits.helperSeconds,
                                                        limits.helperBytes, limits.inflatedBytes);
    if (!drawn.error.empty()) return fail(drawn.error);
    PdfFile file(drawn.pdf);
    const std::string error = file.Open();
    if (!error.empty()) return fail("what Ghostscript drew is " + error);
    DocumentSource page;
    page.container = Container::kPDF;
    page.pdf = &file;
    const std::vector<std::string> linkedFiles = document.linkedFiles;
    ReadResult result = ReadPdfContent(page, limits, document);
    document.linkedFiles = linkedFiles;
    return result;
}

}  // namespace documents
