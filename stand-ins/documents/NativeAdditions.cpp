#include "NativeAdditions.h"

#include <algorithm>
#include <charconv>

#include "DscText.h"
#include "PdfDictionary.h"
#include "Utf8.h"

namespace documents {

namespace {

constexpr char kPiece[] = "/HeadlessHost";
constexpr std::string_view kTextMark = "%HeadlessHost_Text: ";
constexpr std::string_view kFileMark = "%HeadlessHost_File: ";
constexpr long long kMostCharacters = 1LL << 40;

size_t ToLength(long long number)
{
    return static_cast<size_t>(std::clamp(number, 1LL, kMostCharacters));
}

QPDFObjectHandle GetDictionary(QPDFObjectHandle owner, const std::string& key)
{
    if (!owner.getKey(key).isDictionary()) {
        owner.replaceKey(key, QPDFObjectHandle::newDictionary());
    }
    return owner.getKey(key);
}

QPDFObjectHandle GetArray(QPDFObjectHandle owner, const std::string& key)
{
    if (!owner.getKey(key).isArray()) owner.replaceKey(key, QPDFObjectHandle::newArray());
    return owner.getKey(key);
}

void ReadLine(std::string_view line, NativeAdditions& additions)
{
    const bool isText = line.substr(0, kTextMark.size()) == kTextMark;
    line.remove_prefix(isText ? kTextMark.size() : kFileMark.size());
    long long length = 1;
    if (isText) {
        const auto number = std::from_chars(line.data(), line.data() + line.size(), length);
        line.remove_prefix(static_cast<size_t>(number.ptr - line.data()));
    }
    DscWord word;
    if (!TakeDscWord(line, word) || word.text.empty()) return;
    if (isText) {
        additions.texts.push_back({ToValidUtf8(word.text), ToLength(length)});
    } else {
        additions.files.push_back(ToValidUtf8(word.text));
    }
}

}  // namespace

QPDFObjectHandle FindNativePage(const std::vector<QPDFObjectHandle>& pages)
{
    for (const QPDFObjectHandle& page : pages) {
        QPDFObjectHandle piece = GetKeyOrNull(GetKeyOrNull(page, "/PieceInfo"), "/Illustrator");
        if (GetKeyOrNull(GetKeyOrNull(piece, "/Private"), "/AIPrivateData1").isStream())
            return page;
    }
    return QPDFObjectHandle::newNull();
}

NativeAdditions ReadAdditions(QPDFObjectHandle page)
{
    NativeAdditions additions;
    QPDFObjectHandle data =
        GetKeyOrNull(GetKeyOrNull(GetKeyOrNull(page, "/PieceInfo"), kPiece), "/Private");
    QPDFObjectHandle texts = GetKeyOrNull(data, "/Texts");
    for (int i = 0; texts.isArray() && i < texts.getArrayNItems(); ++i) {
        QPDFObjectHandle font = GetKeyOrNull(texts.getArrayItem(i), "/Font");
        QPDFObjectHandle length = GetKeyOrNull(texts.getArrayItem(i), "/Length");
        if (!font.isString()) continue;
        additions.texts.push_back({ToValidUtf8(font.getUTF8Value()),
                                   ToLength(length.isInteger() ? length.getIntValue() : 1)});
    }
    QPDFObjectHandle files = GetKeyOrNull(data, "/Files");
    for (int i = 0; files.isArray() && i < files.getArrayNItems(); ++i) {
        QPDFObjectHandle file = files.getArrayItem(i);
        if (file.isString()) additions.files.push_back(ToValidUtf8(file.getUTF8Value()));
    }
    return additions;
}

void AppendAdditions(const NativeAdditions& additions, QPDF& pdf, QPDFObjectHandle page)
{
    QPDFObjectHandle pieces = GetDictionary(page, "/PieceInfo");
    QPDFObjectHandle data = GetDictionary(GetDictionary(pieces, kPiece), "/Private");
    QPDFObjectHandle texts = GetArray(data, "/Texts");
    for (const TextRun& text : additions.texts) {
        QPDFObjectHandle entry = QPDFObjectHandle::newDictionary();
        entry.replaceKey("/Font", QPDFObjectHandle::newUnicodeString(text.postScriptName));
        entry.replaceKey("/Length",
                         QPDFObjectHandle::newInteger(static_cast<long long>(text.length)));
        texts.appendItem(pdf.makeIndirectObject(entry));
    }
    QPDFObjectHandle files = GetArray(data, "/Files");
    for (const std::string& file : additions.files) {
        files.appendItem(QPDFObjectHandle::newUnicodeString(file));
    }
}

NativeAdditions ReadAdditions(std::string_view postScript)
{
    NativeAdditions additions;
    constexpr std::string_view kMark = "%HeadlessHost_";
    for (size_t at = postScript.find(kMark); at != std::string_view::npos;
         at = postScript.find(kMark, at + 1)) {
        if (at > 0 && postScript[at - 1] != '\n' && postScript[at - 1] != '\r') continue;
        const std::string_view rest = postScript.substr(at);
        const std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
        const bool isKnown = line.substr(0, kTextMark.size()) == kTextMark ||
                             line.substr(0, kFileMark.size()) == kFileMark;
        if (isKnown) ReadLine(line, additions);
    }
    return additions;
}

std::string WriteAdditions(const NativeAdditions& additions)
{
    std::string lines;
    for (const TextRun& text : additions.texts) {
        lines += std::string(kTextMark) + std::to_string(text.length) + " " +
                 QuoteAsString(text.postScriptName) + "\n";
    }
    for (const std::string& file : additions.files) {
        lines += std::string(kFileMark) + QuoteAsString(file) + "\n";
    }
    return lines;
}

}  // namespace documents
