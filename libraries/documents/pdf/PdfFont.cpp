#include "documents/pdf/PdfFont.h"

#include <qpdf/QPDFObjectHandle.hh>
#include <string_view>

#include "base/Strings.h"
#include "documents/model/FontName.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/quick/QuickObject.h"

namespace documents {

namespace {

template <class Object>
std::string GetName(Object dictionary, const char* key)
{
    Object value = GetKeyOrNull(dictionary, key);
    return value.isName() ? value.getName().substr(1) : std::string();
}

// Returns a font's name without subset prefix. A prefix alone ("ABCDEF+") is no name.
template <class Object>
std::string GetFontName(Object dictionary, const char* key)
{
    const std::string name = GetName(dictionary, key);
    const bool isPrefix = StripSubsetPrefix(name + "x") == "x" && name.size() > 1;
    return isPrefix ? std::string() : StripSubsetPrefix(name);
}

bool RemoveEnd(std::string& name, const std::string& end)
{
    const bool hasEnd = name.size() > end.size() && base::EndsWith(name, end);
    if (hasEnd) name.resize(name.size() - end.size());
    return hasEnd;
}

// The name of a Type 0 font is that of its descendant font and, behind a hyphen, of the encoding.
std::string RemoveEncoding(std::string name, const std::string& encoding)
{
    if (!encoding.empty() && RemoveEnd(name, "-" + encoding)) return name;
    for (const char* end : {"-Identity-H", "-Identity-V", "-H", "-V"}) {
        if (RemoveEnd(name, end)) break;
    }
    return name;
}

// Two Type 3 fonts that aren't indirect objects are the same if their glyphs are.
template <class Object>
std::string GetGlyphsKey(Object font)
{
    Object glyphs = GetKeyOrNull(font, "/CharProcs");
    std::string key = "glyphs";
    if (glyphs.isIndirect()) return key + ' ' + glyphs.getObjGen().unparse();
    if (!glyphs.isDictionary()) return key;
    for (const std::string& name : glyphs.getKeys()) {
        key += ' ' + glyphs.getKey(name).getObjGen().unparse();
    }
    return key;
}

template <class Object>
size_t GetCodeBytes(Object encoding)
{
    if (!encoding.isName()) return 2;
    const std::string name = encoding.getName();
    for (std::string_view part : {"Identity", "UCS2", "UTF16"}) {
        if (name.find(part) != std::string::npos) return 2;
    }
    // Other CMaps mix codes of one and two bytes; 1 makes the length an upper bound.
    return 1;
}

}  // namespace

template <class Object>
PdfFont<Object> ReadPdfFont(Object font)
{
    PdfFont<Object> result;
    const std::string type = GetName(font, "/Subtype");
    if (type == "Type3") {
        result.isType3 = true;
        result.dictionary = font;
        return result;
    }
    result.toUnicode = GetKeyOrNull(font, "/ToUnicode");
    Object described = font;
    if (type == "Type0") {
        Object descendants = GetKeyOrNull(font, "/DescendantFonts");
        if (descendants.isArray() && descendants.getArrayNItems() > 0) {
            described = descendants.getArrayItem(0);
        }
        result.codeBytes = GetCodeBytes(GetKeyOrNull(font, "/Encoding"));
    }
    std::string& name = result.name;
    name = GetFontName(described, "/BaseFont");
    if (name.empty() && type == "Type0") {
        name = RemoveEncoding(GetFontName(font, "/BaseFont"), GetName(font, "/Encoding"));
    }
    if (name.empty()) name = GetFontName(GetKeyOrNull(described, "/FontDescriptor"), "/FontName");
    result.isNamed = !result.name.empty();
    return result;
}

template <class Object>
const PdfFont<Object>* PdfFontTable<Object>::Get(Object font)
{
    if (!font.isDictionary()) return nullptr;
    if (!font.isIndirect()) {
        PdfFont<Object> read = ReadPdfFont(font);
        const std::string key = read.isType3 ? GetGlyphsKey(font)
                                             : read.name + '/' + std::to_string(read.codeBytes) +
                                                   (read.isNamed ? "" : "-");
        return &mDirectFonts.emplace(key, std::move(read)).first->second;
    }
    const auto found = mFonts.find(font.getObjGen());
    if (found != mFonts.end()) return &found->second;
    return &mFonts.emplace(font.getObjGen(), ReadPdfFont(font)).first->second;
}

template PdfFont<QPDFObjectHandle> ReadPdfFont(QPDFObjectHandle font);
template PdfFont<QuickObject> ReadPdfFont(QuickObject font);
template class PdfFontTable<QPDFObjectHandle>;
template class PdfFontTable<QuickObject>;

}  // namespace documents
