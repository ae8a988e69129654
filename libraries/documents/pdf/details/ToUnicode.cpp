#include "documents/pdf/details/ToUnicode.h"

#include <vector>

#include "base/Utf8.h"

namespace documents {

namespace {

constexpr size_t kMostCodes = 65536;

int GetHexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::string DecodeHex(std::string_view text)
{
    std::string bytes;
    int high = -1;
    for (const char c : text) {
        const int digit = GetHexDigit(c);
        if (digit < 0) continue;
        if (high < 0) {
            high = digit;
        } else {
            bytes += static_cast<char>(high * 16 + digit);
            high = -1;
        }
    }
    if (high >= 0) bytes += static_cast<char>(high * 16);
    return bytes;
}

// Takes up to three octal digits from the start of `text`.
char TakeOctal(std::string_view text, size_t& length)
{
    unsigned value = 0;
    for (length = 0; length < 3 && length < text.size(); ++length) {
        if (text[length] < '0' || text[length] > '7') break;
        value = value * 8 + static_cast<unsigned>(text[length] - '0');
    }
    return static_cast<char>(value);
}

std::string DecodeLiteral(std::string_view text)
{
    constexpr std::string_view kLetters = "nrtbf";
    constexpr std::string_view kMeanings = "\n\r\t\b\f";
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            bytes += text[i];
            continue;
        }
        ++i;
        size_t digits = 0;
        const char octal = TakeOctal(text.substr(i), digits);
        const size_t letter = kLetters.find(text[i]);
        if (digits > 0) {
            bytes += octal;
            i += digits - 1;
        } else if (letter != std::string_view::npos) {
            bytes += kMeanings[letter];
        } else if (text[i] == '\r') {  // a line that is continued
            if (text.substr(i + 1, 1) == "\n") ++i;
        } else if (text[i] != '\n') {
            bytes += text[i];
        }
    }
    return bytes;
}

uint32_t GetCode(std::string_view bytes)
{
    uint32_t code = 0;
    for (const char byte : bytes) code = (code << 8) | static_cast<unsigned char>(byte);
    return code;
}

}  // namespace

std::string DecodeString(const Token& token)
{
    return token.isHex ? DecodeHex(token.text) : DecodeLiteral(token.text);
}

ToUnicode::ToUnicode(std::string_view map) : mHasMap(true)
{
    ContentLexer lexer(map);
    std::vector<std::string> strings;  // since the last operator
    std::vector<std::string> array;
    bool isInArray = false;
    for (Token token = lexer.Next(); token.type != TokenType::kEnd; token = lexer.Next()) {
        if (mEntryCount >= kMostCodes) break;
        if (token.type == TokenType::kString) {
            (isInArray ? array : strings).push_back(DecodeString(token));
        } else if (token.type == TokenType::kArrayOpen) {
            isInArray = true;
            array.clear();
        } else if (token.type == TokenType::kArrayClose) {
            isInArray = false;
            // The texts of a range, one for each code.
            if (strings.size() >= 2) {
                uint32_t code = GetCode(strings[strings.size() - 2]);
                for (const std::string& text : array) Add(code++, text);
                strings.resize(strings.size() - 2);
            }
        } else if (token.type == TokenType::kOperator) {
            if (token.text == "endbfchar") {
                for (size_t i = 0; i + 1 < strings.size(); i += 2) {
                    Add(GetCode(strings[i]), strings[i + 1]);
                }
            } else if (token.text == "endbfrange") {
                for (size_t i = 0; i + 2 < strings.size(); i += 3) {
                    AddRange(strings[i], strings[i + 1], strings[i + 2]);
                }
            }
            strings.clear();
        }
    }
}

void ToUnicode::Add(uint32_t code, const std::string& utf16)
{
    if (++mEntryCount <= kMostCodes) mTexts[code] = base::FromUtf16(utf16);
}

void ToUnicode::AddRange(const std::string& first, const std::string& last, const std::string& text)
{
    if (text.size() < 2) return;
    const std::string start = text.substr(0, text.size() - 2);
    const uint32_t unit = GetCode(text.substr(text.size() - 2));
    const uint32_t begin = GetCode(first);
    const uint32_t end = GetCode(last);
    for (uint32_t code = begin; code <= end && mEntryCount < kMostCodes; ++code) {
        const uint32_t value = unit + (code - begin);
        if (value > 0xffff) break;
        Add(code, start + static_cast<char>(value >> 8) + static_cast<char>(value & 0xff));
    }
}

std::string ToUnicode::Decode(std::string_view bytes, size_t codeBytes) const
{
    std::string text;
    for (size_t i = 0; i + codeBytes <= bytes.size(); i += codeBytes) {
        const uint32_t code = GetCode(bytes.substr(i, codeBytes));
        const auto found = mTexts.find(code);
        if (found != mTexts.end()) {
            text += found->second;
        } else if (!mHasMap && codeBytes == 1 && code >= 0x20 && code < 0x7f) {
            text += static_cast<char>(code);
        }
    }
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
    }
    return text;
}

}  // namespace documents
