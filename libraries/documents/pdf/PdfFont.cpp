#include "documents/pdf/PdfFont.h"

#include <string_view>

#include "documents/model/FontName.h"
#include "documents/pdf/PdfDictionary.h"

namespace documents {

namespace {

std::string GetName(QPDFObjectHandle dictionary, const char* key)
{
    QPDFObjectHandle value = GetKeyOrNull(dictionary, key);
    return value.isName() ? value.getName().substr(1) : std::string();
}

size_t GetCodeBytes(QPDFObjectHandle encoding)
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

PdfFont ReadPdfFont(QPDFObjectHandle font)
{
    PdfFont result;
    const std::string type = GetName(font, "/Subtype");
    if (type == "Type3") return result;
    QPDFObjectHandle described = font;
    if (type == "Type0") {
        QPDFObjectHandle descendants = GetKeyOrNull(font, "/DescendantFonts");
        if (descendants.isArray() && descendants.getArrayNItems() > 0) {
            described = descendants.getArrayItem(0);
        }
        result.codeBytes = GetCodeBytes(GetKeyOrNull(font, "/Encoding"));
    }
    std::string name = GetName(described, "/BaseFont");
    if (name.empty()) name = GetName(font, "/BaseFont");
    if (name.empty()) name = GetName(GetKeyOrNull(described, "/FontDescriptor"), "/FontName");
    result.name = StripSubsetPrefix(name);
    result.isNamed = !result.name.empty();
    return result;
}

const PdfFont* PdfFontTable::Get(QPDFObjectHandle font)
{
    if (!font.isDictionary()) return nullptr;
    if (!font.isIndirect()) {
        PdfFont read = ReadPdfFont(font);
        const std::string key =
            read.name + '/' + std::to_string(read.codeBytes) + (read.isNamed ? "" : "-");
        return &mDirectFonts.emplace(key, std::move(read)).first->second;
    }
    const auto found = mFonts.find(font.getObjGen());
    if (found != mFonts.end()) return &found->second;
    return &mFonts.emplace(font.getObjGen(), ReadPdfFont(font)).first->second;
}

}  // namespace documents
