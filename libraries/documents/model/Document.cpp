#include "documents/model/Document.h"

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

std::string JoinNotes(const Document& document)
{
    std::string line;
    for (const std::string& note : document.notes) line += (line.empty() ? "" : "; ") + note;
    return line;
}

}  // namespace documents
