#pragma once

#include <map>
#include <qpdf/QPDFObjGen.hh>
#include <string>

namespace documents {

// What the readers need of a font dictionary. `Object` is the type of values, here and in the other
// templates: QPDFObjectHandle, or QuickObject of a file without faults (quick/QuickFile.h).
template <class Object>
struct PdfFont {
    std::string name;      // PostScript name without subset prefix; may be invalid UTF-8
    size_t codeBytes = 1;  // bytes per character of a shown string
    bool isNamed = false;  // false for Type 3 and for fonts without a name: never reported
    bool isType3 = false;
    Object dictionary;  // of a Type 3 font only: glyphs can show text in other fonts
    Object toUnicode;   // the stream that maps codes to text; null if there is none
};

// Reads a font dictionary of any type. A Type 0 font gets the name of its descendant font;
// if that has none, its own name without the name of the encoding behind it. FontName.h says what
// applies to a descendant font whose own name ends in an encoding.
template <class Object>
PdfFont<Object> ReadPdfFont(Object font);

// The fonts of one file. Reads each font once. The pointers remain valid as long as the table
// exists.
template <class Object>
class PdfFontTable {
public:
    // Returns null if `font` isn't a dictionary.
    const PdfFont<Object>* Get(Object font);

private:
    std::map<QPDFObjGen, PdfFont<Object>> mFonts;         // fonts that are indirect objects
    std::map<std::string, PdfFont<Object>> mDirectFonts;  // others, by their content
};

}  // namespace documents
