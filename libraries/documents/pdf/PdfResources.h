#pragma once

#include <cstddef>
#include <map>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <string_view>

#include "documents/pdf/PdfFont.h"

namespace documents {

// A resource dictionary, asked by the names that stand in content (as they stand there, #xx and
// all). What isn't there, or is of the wrong kind, is null.
class PdfResources {
public:
    // `id` tells this one from all others of the file, those that are gone included.
    PdfResources(QPDFObjectHandle dictionary, PdfFontTable& fonts, size_t id)
        : mDictionary(dictionary), mFonts(fonts), mId(id)
    {
    }

    size_t GetId() const { return mId; }

    const PdfFont* FindFont(std::string_view name);

    // A resource of another category, as "/XObject".
    QPDFObjectHandle Find(const char* category, std::string_view name) const;

private:
    QPDFObjectHandle mDictionary;
    PdfFontTable& mFonts;
    size_t mId;
    std::map<std::string, const PdfFont*, std::less<>> mFound;
};

}  // namespace documents
