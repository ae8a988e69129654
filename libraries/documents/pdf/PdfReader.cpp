#include "documents/pdf/PdfReader.h"

#include "documents/model/DocumentBuilder.h"
#include "documents/pdf/ContentWalker.h"
#include "documents/pdf/PdfFile.h"

namespace documents {

ReadResult ReadPdfContent(const DocumentSource& source, const Limits& limits, Document& document)
{
    if (source.pdf == nullptr) return {};
    DocumentBuilder builder(document);
    ContentWalker walker(*source.pdf, limits, builder);
    for (const QPDFObjectHandle& page : source.pdf->GetPages()) walker.WalkPage(page);
    if (document.linkedFiles.empty()) document.linkedFiles = walker.GetLinkedFiles();
    for (std::string& note : walker.GetNotes()) document.notes.push_back(std::move(note));
    return {ReadStatus::kRead, {}};
}

}  // namespace documents
