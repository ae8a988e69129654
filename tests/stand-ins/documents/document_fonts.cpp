// document-fonts [--all] FILE...: prints the fonts of each file, one a line, in byte order; with
// --all everything else that was read too. Exit status 1 if a file can't be read.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "OpenDocument.h"

namespace {

void PrintAll(const documents::Document& document)
{
    std::printf("kind %s, reader %s, creator \"%s\"%s, %zu frames\n",
                documents::GetKindName(document.kind), document.reader.c_str(),
                document.creator.c_str(), document.isTemplate ? ", template" : "",
                document.frames.size());
    for (const std::string& file : document.linkedFiles) std::printf("placed %s\n", file.c_str());
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

}  // namespace

int main(int argc, char** argv)
{
    bool good = true;
    bool all = false;
    for (int index = 1; index < argc; ++index) {
        const std::string argument = argv[index];
        if (argument == "--all") {
            all = true;
        } else {
            good = PrintDocument(argument, all) && good;
        }
    }
    return good ? 0 : 1;
}
