#include "documents/pdf/PdfReader.h"

#include "documents/model/DocumentBuilder.h"
#include "documents/pdf/ContentWalker.h"
#include "documents/pdf/PdfDescription.h"
#include "documents/pdf/PdfFile.h"  // IWYU pragma: keep
#include "documents/pdf/details/PageFonts.h"
#include "documents/pdf/quick/QuickFile.h"

namespace documents {

namespace {

template <class File>
void ReadContent(File& file, const Limits& limits, Document& document)
{
    DocumentBuilder builder(document);
    ContentWalker<File> walker(file, limits, builder);
    for (const auto& page : file.GetPages()) walker.WalkPage(page);
    if (document.linkedFiles.empty()) document.linkedFiles = walker.GetLinkedFiles();
    for (std::string& note : walker.GetNotes()) document.notes.push_back(std::move(note));
}

}  // namespace

ReadResult ReadPdfContent(const DocumentSource& source, const Limits& limits, Document& document)
{
    if (source.pdf == nullptr) return {};
    ReadContent(*source.pdf, limits, document);
    return {ReadStatus::kRead, {}};
}

void ReadPdfQuickly(std::string_view bytes, const Limits& limits, Document& document)
{
    QuickFile file(bytes);
    for (const QuickObject& page : file.GetPages()) {
        // A native part, or what a program added beside it.
        if (!page.getKey("/PieceInfo").isNull()) throw Irregular("private data of a program");
    }
    DescribePdf(file, document);
    // The manifest of such a PDF lists what its original linked; the PDF contains copies of it.
    document.linkedFiles.clear();
    ReadContent(file, limits, document);
    document.reader = "pdf";
    if (limits.hasDetails) document.pageFonts = ReadPageFonts(file);
}

}  // namespace documents
