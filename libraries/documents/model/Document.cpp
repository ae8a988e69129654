#include "documents/model/Document.h"

#include <unordered_set>
#include <utility>

namespace documents {

const char* GetKindName(Kind kind)
{
    switch (kind) {
        case Kind::kIllustrator:
            return "ai";
        case Kind::kPDF:
            return "pdf";
        case Kind::kEPS:
            return "eps";
        case Kind::kUnknown:
            break;
    }
    return "unknown";
}

std::vector<DocumentFont> GetAllFonts(const Document& document)
{
    std::vector<DocumentFont> fonts;
    std::unordered_set<std::string> seen;
    const auto add = [&](const std::vector<std::string>& names, bool areListed) {
        for (const std::string& name : names) {
            if (seen.insert(name).second) fonts.push_back({name, areListed});
        }
    };
    add(document.fonts, false);
    add(document.fontList, true);
    return fonts;
}

std::vector<std::string> GetAllFontNames(const Document& document)
{
    std::vector<std::string> names;
    for (DocumentFont& font : GetAllFonts(document)) {
        names.push_back(std::move(font.postScriptName));
    }
    return names;
}

std::string JoinNotes(const Document& document)
{
    std::string line;
    for (const std::string& note : document.notes) line += (line.empty() ? "" : "; ") + note;
    return line;
}

}  // namespace documents
