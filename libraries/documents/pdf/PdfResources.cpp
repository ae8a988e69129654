#include "documents/pdf/PdfResources.h"

#include "documents/pdf/ContentLexer.h"
#include "documents/pdf/PdfDictionary.h"

namespace documents {

const PdfFont* PdfResources::FindFont(std::string_view name)
{
    const auto found = mFound.find(name);
    if (found != mFound.end()) return found->second;
    const PdfFont* font = mFonts.Get(Find("/Font", name));
    mFound.emplace(name, font);
    return font;
}

QPDFObjectHandle PdfResources::Find(const char* category, std::string_view name) const
{
    QPDFObjectHandle dictionary = mDictionary;
    return GetKeyOrNull(GetKeyOrNull(dictionary, category), "/" + DecodeName(name));
}

}  // namespace documents
