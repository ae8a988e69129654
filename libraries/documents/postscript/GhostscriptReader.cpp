#include "documents/postscript/GhostscriptReader.h"

#include "documents/pdf/PdfFile.h"
#include "documents/pdf/PdfReader.h"
#include "documents/postscript/Ghostscript.h"

namespace documents {

ReadResult ReadThroughGhostscript(const DocumentSource& source, const Limits& limits,
                                  Document& document)
{
    if (source.pdf != nullptr) return {};
    // helperSeconds == 0 means "don't use Ghostscript"; not an error.
    if (limits.helperSeconds <= 0) return {};
    const auto fail = [](const std::string& reason) {
        return ReadResult{ReadStatus::kFailed, "no comment lists all fonts, and " + reason};
    };
    const GhostscriptResult drawn = DrawWithGhostscript(source.postScript, limits.helperSeconds,
                                                        limits.helperBytes, limits.inflatedBytes);
    if (!drawn.error.empty()) return fail(drawn.error);
    PdfFile file(drawn.pdf);
    const std::string error = file.Open();
    if (!error.empty()) return fail("the PDF of Ghostscript is " + error);
    DocumentSource page;
    page.container = Container::kPDF;
    page.pdf = &file;
    // Keep the placed files of the comments: in the PDF they are embedded.
    const std::vector<std::string> linkedFiles = document.linkedFiles;
    ReadResult result = ReadPdfContent(page, limits, document);
    document.linkedFiles = linkedFiles;
    return result;
}

}  // namespace documents
