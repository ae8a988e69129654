#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "documents/pdf/PdfFont.h"

namespace documents {

// A resource dictionary, searched by the names of name tokens (not decoded: #xx is decoded here).
// The functions return null if there is no such resource or it has the wrong type.
template <class Object>
class PdfResources {
public:
    // `id` must be unique in the file, also among dictionaries that were destroyed before.
    PdfResources(Object dictionary, PdfFontTable<Object>& fonts, size_t id)
        : mDictionary(dictionary), mFonts(fonts), mId(id)
    {
    }

    size_t GetId() const { return mId; }

    const PdfFont<Object>* FindFont(std::string_view name);

    // Returns a resource of another category, for example "/XObject".
    Object Find(const char* category, std::string_view name) const;

private:
    Object mDictionary;
    PdfFontTable<Object>& mFonts;
    size_t mId;
    std::map<std::string, const PdfFont<Object>*, std::less<>> mFound;
};

}  // namespace documents
