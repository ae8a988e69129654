// pdf-fonts FILE...: prints for each file a line "FILE:" and the names of its fonts, as the readers
// of documents find them, one per line. bench/compare-pdf measures it beside programs that do
// nothing but list the fonts of PDF files. A file that cannot be read has no names.
#include <cstdio>

#include "documents/OpenDocument.h"

int main(int argc, char** argv)
{
    documents::Limits limits;
    limits.helperSeconds = 0;
    for (int index = 1; index < argc; ++index) {
        const documents::OpenResult result = documents::OpenDocument(argv[index], limits);
        (void)std::printf("%s:\n", argv[index]);
        for (const std::string& font : result.document.fonts) (void)std::puts(font.c_str());
    }
    return 0;
}
