// Usage: document-fonts [--all|--listed] FILE...
//
// Prints the fonts of each file, one per line, in byte order. --all also prints everything else
// that was read; --listed prints the fonts that the header of the native part lists, instead. Exit
// status: 1 if a file cannot be read or, with --listed, has no native part.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "documents/OpenDocument.h"
#include "documents/bytes/FileBytes.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/model/DocumentReader.h"
#include "documents/native/NativeContainer.h"
#include "documents/pdf/PdfFile.h"
#include "documents/postscript/DscReader.h"

namespace {

void PrintAll(const documents::Document& document)
{
    std::printf("kind %s, reader %s, creator \"%s\"%s, %zu frames\n",
                documents::GetKindName(document.kind), document.reader.c_str(),
                document.creator.c_str(), document.isTemplate ? ", template" : "",
                document.frames.size());
    for (const std::string& file : document.linkedFiles) std::printf("placed %s\n", file.c_str());
    for (const documents::DocumentFont& font : documents::GetAllFonts(document)) {
        if (font.isListed) std::printf("listed %s\n", font.postScriptName.c_str());
    }
    for (const std::string& note : document.notes) std::printf("note %s\n", note.c_str());
}

bool PrintDocument(const std::string& path, bool all)
{
    const documents::OpenResult result = documents::OpenDocument(path);
    if (!result.ok) {
        std::fprintf(stderr, "document-fonts: %s: %s\n", path.c_str(), result.error.c_str());
        return false;
    }
    if (all) PrintAll(result.document);
    std::vector<std::string> fonts = result.document.fonts;
    std::sort(fonts.begin(), fonts.end());
    for (const std::string& font : fonts) std::printf("%s\n", font.c_str());
    return true;
}

// Prints the fonts that the header of the native part lists.
bool PrintListed(const std::string& path)
{
    const documents::FileBytes file = documents::ReadFileBytes(
        path, documents::Limits{}.inflatedBytes, [](const std::string&) { return std::string(); });
    const documents::ReadBudget budget(documents::Limits{}.inflatedBytes,
                                       documents::Limits{}.seconds);
    documents::DocumentSource source;
    source.container = documents::GetContainer(file.bytes);
    source.postScript = source.container == documents::Container::kDosEPS
                            ? documents::FindPostScriptSection(file.bytes).bytes
                            : std::string_view(file.bytes);
    documents::PdfFile pdf(file.bytes);
    if (source.container == documents::Container::kPDF) {
        if (!pdf.Open().empty()) return false;
        source.pdf = &pdf;
    }
    const documents::NativePart part = documents::FindNativePart(source);
    if (!part.isThere || !part.error.empty()) return false;
    documents::DocumentSource header;
    header.container = documents::Container::kPostScript;
    header.postScript = part.text.substr(0, part.text.find("%AI5_BeginLayer"));
    documents::Document document;
    (void)documents::ReadDscComments(header, {}, document);  // without comments, the list is empty
    std::sort(document.fonts.begin(), document.fonts.end());
    for (const std::string& font : document.fonts) std::printf("%s\n", font.c_str());
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    bool good = true;
    bool all = false;
    bool listed = false;
    for (int index = 1; index < argc; ++index) {
        const std::string argument = argv[index];
        if (argument == "--all") {
            all = true;
        } else if (argument == "--listed") {
            listed = true;
        } else {
            good = (listed ? PrintListed(argument) : PrintDocument(argument, all)) && good;
        }
    }
    return good ? 0 : 1;
}
