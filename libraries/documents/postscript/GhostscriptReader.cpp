#include "documents/postscript/GhostscriptReader.h"

#include <algorithm>
#include <cstdlib>

#include "documents/pdf/PdfFile.h"
#include "documents/pdf/PdfReader.h"
#include "documents/postscript/Ghostscript.h"
#include "documents/postscript/SlowDrawings.h"

namespace documents {

namespace {

// The limit for one drawing. The environment can shorten it.
double GetDrawingSeconds(const Limits& limits)
{
    const char* const text = std::getenv("CORVANTA_DRAWING_SECONDS");
    const double seconds = text == nullptr ? 0 : std::strtod(text, nullptr);
    return seconds > 0 ? std::min(seconds, limits.helperSeconds) : limits.helperSeconds;
}

// Draws what wasn't tried in vain for as long already.
GhostscriptResult Draw(std::string_view postScript, const Limits& limits)
{
    const double seconds = GetDrawingSeconds(limits);
    const SlowDrawings& memory = GetSlowDrawings();
    const std::string name = memory.getSeconds == nullptr ? "" : NameDrawing(postScript);
    const double inVain = name.empty() ? 0 : memory.getSeconds(name.c_str());
    if (inVain >= seconds) return {{}, DescribeLateDrawing(inVain), true};
    GhostscriptResult drawn =
        DrawWithGhostscript(postScript, seconds, limits.helperBytes, limits.inflatedBytes);
    if (drawn.isLate && !name.empty()) memory.addSeconds(name.c_str(), seconds);
    return drawn;
}

}  // namespace

ReadResult ReadThroughGhostscript(const DocumentSource& source, const Limits& limits,
                                  Document& document)
{
    if (source.pdf != nullptr) return {};
    // helperSeconds == 0 means "don't use Ghostscript"; not an error.
    if (limits.helperSeconds <= 0) return {};
    const auto fail = [](const std::string& reason) {
        return ReadResult{ReadStatus::kFailed, "no comment lists all fonts, and " + reason};
    };
    const GhostscriptResult drawn = Draw(source.postScript, limits);
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
