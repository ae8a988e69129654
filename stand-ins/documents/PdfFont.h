#pragma once

#include <map>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>

namespace documents {

// What a font dictionary says of a font.
struct PdfFont {
    std::string name;      // PostScript name without the prefix of a subset; bytes as in the file
    size_t codeBytes = 1;  // how many bytes of a string make a character
    bool counts = false;   // false for Type 3 and for fonts without a name
};

// Reads a font dictionary of any type. Type 0 fonts have the name of their descendant.
PdfFont ReadPdfFont(QPDFObjectHandle font);

// The fonts of one file, each read once. What it gives stays valid while it lives.
class PdfFontTable {
public:
    // Null if `font` is no dictionary.
    const PdfFont* Get(QPDFObjectHandle font);

private:
    std::map<QPDFObjGen, PdfFont> mFonts;  // fonts that are objects of their own
    std::map<std::string, PdfFont> mDirectFonts;
};

}  // namespace documents
