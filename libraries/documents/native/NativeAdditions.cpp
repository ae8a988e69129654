#include "documents/native/NativeAdditions.h"

#include <charconv>

#include "base/Lines.h"
#include "base/Strings.h"
#include "base/Utf8.h"
#include "documents/native/NativeKeys.h"
#include "documents/native/TextLength.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/postscript/DscText.h"

namespace documents {

namespace {

// GetDictionary and GetArray create the value if it is missing or has another type.
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

bool IsTextLine(std::string_view line) { return base::StartsWith(line, record::kHostTextLine); }

bool IsFileLine(std::string_view line) { return base::StartsWith(line, record::kHostFileLine); }

// The private data of a program on a page, or null.
QPDFObjectHandle GetPrivateData(QPDFObjectHandle page, const char* program)
{
    return GetKeyOrNull(GetKeyOrNull(GetKeyOrNull(page, record::kPieceInfo), program),
                        record::kPrivate);
}

// Reads "%HeadlessHost_Text: LENGTH (FONT)" or "%HeadlessHost_File: (PATH)".
void ReadLine(std::string_view line, NativeAdditions& additions)
{
    const bool isText = IsTextLine(line);
    line.remove_prefix(isText ? record::kHostTextLine.size() : record::kHostFileLine.size());
    long long length = 1;
    if (isText) {
        const auto number = std::from_chars(line.data(), line.data() + line.size(), length);
        line.remove_prefix(static_cast<size_t>(number.ptr - line.data()));
    }
    DscWord word;
    if (!TakeDscWord(line, word, kMostDscBytes) || word.text.empty()) return;
    if (isText) {
        additions.texts.push_back({base::ToValidUtf8(word.text), ToLength(length, 1)});
    } else {
        additions.files.push_back(base::ToValidUtf8(word.text));
    }
}

}  // namespace

QPDFObjectHandle FindNativePage(const std::vector<QPDFObjectHandle>& pages)
{
    for (const QPDFObjectHandle& page : pages) {
        QPDFObjectHandle data = GetPrivateData(page, record::kProgramPiece);
        if (GetKeyOrNull(data, std::string(record::kPrivateData) + "1").isStream()) return page;
    }
    return QPDFObjectHandle::newNull();
}

NativeAdditions ReadAdditions(QPDFObjectHandle page)
{
    NativeAdditions additions;
    QPDFObjectHandle data = GetPrivateData(page, record::kHostPiece);
    QPDFObjectHandle texts = GetKeyOrNull(data, record::kHostTexts);
    for (int i = 0; texts.isArray() && i < texts.getArrayNItems(); ++i) {
        QPDFObjectHandle font = GetKeyOrNull(texts.getArrayItem(i), record::kHostFont);
        QPDFObjectHandle length = GetKeyOrNull(texts.getArrayItem(i), record::kHostLength);
        if (!font.isString()) continue;
        additions.texts.push_back({base::ToValidUtf8(font.getUTF8Value()),
                                   ToLength(length.isInteger() ? length.getIntValue() : 1)});
    }
    QPDFObjectHandle files = GetKeyOrNull(data, record::kHostFiles);
    for (int i = 0; files.isArray() && i < files.getArrayNItems(); ++i) {
        QPDFObjectHandle file = files.getArrayItem(i);
        if (file.isString()) additions.files.push_back(base::ToValidUtf8(file.getUTF8Value()));
    }
    return additions;
}

void AppendAdditions(const NativeAdditions& additions, QPDF& pdf, QPDFObjectHandle page)
{
    QPDFObjectHandle pieces = GetDictionary(page, record::kPieceInfo);
    QPDFObjectHandle data =
        GetDictionary(GetDictionary(pieces, record::kHostPiece), record::kPrivate);
    QPDFObjectHandle texts = GetArray(data, record::kHostTexts);
    for (const TextRun& text : additions.texts) {
        QPDFObjectHandle entry = QPDFObjectHandle::newDictionary();
        entry.replaceKey(record::kHostFont,
                         QPDFObjectHandle::newUnicodeString(text.postScriptName));
        entry.replaceKey(record::kHostLength,
                         QPDFObjectHandle::newInteger(static_cast<long long>(text.length)));
        texts.appendItem(pdf.makeIndirectObject(entry));
    }
    QPDFObjectHandle files = GetArray(data, record::kHostFiles);
    for (const std::string& file : additions.files) {
        files.appendItem(QPDFObjectHandle::newUnicodeString(file));
    }
}

NativeAdditions ReadAdditions(std::string_view postScript)
{
    NativeAdditions additions;
    for (size_t at = postScript.find(record::kHostLine); at != std::string_view::npos;
         at = postScript.find(record::kHostLine, at + 1)) {
        if (at > 0 && postScript[at - 1] != '\n' && postScript[at - 1] != '\r') continue;
        std::string_view rest = postScript.substr(at);
        const std::string_view line = base::TakeLine(rest);
        if (IsTextLine(line) || IsFileLine(line)) ReadLine(line, additions);
    }
    return additions;
}

std::string WriteAdditions(const NativeAdditions& additions)
{
    std::string lines;
    for (const TextRun& text : additions.texts) {
        lines += std::string(record::kHostTextLine) + std::to_string(text.length) + " " +
                 QuoteAsString(text.postScriptName) + "\n";
    }
    for (const std::string& file : additions.files) {
        lines += std::string(record::kHostFileLine) + QuoteAsString(file) + "\n";
    }
    return lines;
}

}  // namespace documents
