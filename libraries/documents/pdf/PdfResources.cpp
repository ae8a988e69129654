#include "documents/pdf/PdfResources.h"

#include <qpdf/QPDFObjectHandle.hh>

#include "documents/pdf/ContentLexer.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/quick/QuickObject.h"

namespace documents {

template <class Object>
const PdfFont<Object>* PdfResources<Object>::FindFont(std::string_view name)
{
    const auto found = mFound.find(name);
    if (found != mFound.end()) return found->second;
    const PdfFont<Object>* font = mFonts.Get(Find("/Font", name));
    mFound.emplace(name, font);
    return font;
}

template <class Object>
Object PdfResources<Object>::Find(const char* category, std::string_view name) const
{
    Object dictionary = mDictionary;
    return GetKeyOrNull(GetKeyOrNull(dictionary, category), "/" + DecodeName(name));
}

template class PdfResources<QPDFObjectHandle>;
template class PdfResources<QuickObject>;

}  // namespace documents
