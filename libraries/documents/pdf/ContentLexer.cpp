#include "documents/pdf/ContentLexer.h"

#include <algorithm>
#include <array>

#include "documents/bytes/PdfCharacters.h"

namespace documents {

namespace {

// What isn't an ordinary character of a literal string.
constexpr std::array<bool, 256> MakeSpecial()
{
    std::array<bool, 256> special{};
    for (char c : {'(', ')', '\\', '\n'}) special[static_cast<unsigned char>(c)] = true;
    return special;
}

constexpr std::array<bool, 256> kIsSpecial = MakeSpecial();

bool IsNumberPart(char c) { return GetCharacterClass(c) == kPdfNumberPart; }

bool IsOctal(char c) { return c >= '0' && c <= '7'; }

int GetHexValue(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

size_t CountRegular(std::string_view text)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end && (GetCharacterClass(*at) & (kPdfSpace | kPdfDelimiter)) == 0) ++at;
    return static_cast<size_t>(at - text.data());
}

// `text` follows a backslash. Returns how many of its bytes belong to the escape, and sets
// `decodedBytes` to the number of bytes after decoding.
size_t MeasureEscape(std::string_view text, size_t& decodedBytes)
{
    decodedBytes = text.empty() ? 0 : 1;
    if (text.empty()) return 0;
    if (text[0] == '\r' || text[0] == '\n') {
        decodedBytes = 0;  // the string continues on the next line
        return text.substr(0, 2) == "\r\n" ? 2 : 1;
    }
    size_t length = 0;
    while (length < 3 && length < text.size() && IsOctal(text[length])) ++length;
    return std::max<size_t>(length, 1);
}

}  // namespace

std::string DecodeName(std::string_view text)
{
    std::string name;
    name.reserve(text.size());
    for (size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '#' && index + 2 < text.size()) {
            const int high = GetHexValue(text[index + 1]);
            const int low = GetHexValue(text[index + 2]);
            if (high >= 0 && low >= 0) {
                name += static_cast<char>(high * 16 + low);
                index += 2;
                continue;
            }
        }
        name += text[index];
    }
    return name;
}

void ContentLexer::Skip(size_t bytes) { mRest.remove_prefix(std::min(bytes, mRest.size())); }

void ContentLexer::SkipComments(unsigned char skipped)
{
    const char* at = mRest.data();
    const char* const end = at + mRest.size();
    for (;;) {
        while (at != end && (GetCharacterClass(*at) & skipped) != 0) ++at;
        if (at == end || *at != '%') break;
        while (at != end && *at != '\r' && *at != '\n') ++at;
    }
    mRest.remove_prefix(static_cast<size_t>(at - mRest.data()));
}

Token ContentLexer::Next() { return TakeToken(kPdfSpace); }

Token ContentLexer::NextButNumber() { return TakeToken(kPdfSpace | kPdfNumberPart); }

Token ContentLexer::TakeToken(unsigned char skipped)
{
    for (;;) {
        SkipComments(skipped);
        if (mRest.empty()) return {};
        const char first = mRest.front();
        const bool isDouble = mRest.size() > 1 && mRest[1] == first;
        switch (first) {
            case '(':
                return TakeLiteralString();
            case '[':
                return TakeRegular(TokenType::kArrayOpen, 1);
            case ']':
                return TakeRegular(TokenType::kArrayClose, 1);
            case '<':
                if (isDouble) return TakeRegular(TokenType::kDictionaryOpen, 2);
                return TakeHexString();
            case '>':
                if (isDouble) return TakeRegular(TokenType::kDictionaryClose, 2);
                Skip(1);
                break;
            case ')':
            case '{':
            case '}':
                Skip(1);
                break;
            case '/':
                Skip(1);
                return TakeRegular(TokenType::kName, CountRegular(mRest));
            default:
                if (IsNumberPart(first)) {
                    const auto* end = std::find_if_not(mRest.begin(), mRest.end(), IsNumberPart);
                    return TakeRegular(TokenType::kNumber,
                                       static_cast<size_t>(end - mRest.begin()));
                }
                return TakeRegular(TokenType::kOperator, CountRegular(mRest));
        }
    }
}

Token ContentLexer::TakeRegular(TokenType type, size_t length)
{
    const Token token{type, mRest.substr(0, length), 0};
    Skip(length);
    return token;
}

Token ContentLexer::TakeLiteralString()
{
    Token token{TokenType::kString, {}, 0, false};
    size_t depth = 1;
    size_t position = 1;
    for (; position < mRest.size(); ++position) {
        const size_t start = position;
        while (position < mRest.size() &&
               !kIsSpecial[static_cast<unsigned char>(mRest[position])]) {
            ++position;
        }
        token.length += position - start;
        if (position == mRest.size()) break;
        const char c = mRest[position];
        if (c == '\\') {
            size_t decodedBytes = 0;
            position += MeasureEscape(mRest.substr(position + 1), decodedBytes);
            token.length += decodedBytes;
            continue;
        }
        if (c == '(') ++depth;
        if (c == ')' && --depth == 0) break;
        // CR LF is decoded to one byte.
        if (c == '\n' && mRest[position - 1] == '\r') continue;
        ++token.length;
    }
    token.text = mRest.substr(1, position - 1);
    Skip(position + 1);
    return token;
}

Token ContentLexer::TakeHexString()
{
    Token token{TokenType::kString, {}, 0, true};
    const size_t end = std::min(mRest.find('>'), mRest.size());
    token.text = mRest.substr(1, end - 1);
    const auto digits = std::count_if(token.text.begin(), token.text.end(),
                                      [](char c) { return GetHexValue(c) >= 0; });
    token.length = (static_cast<size_t>(digits) + 1) / 2;
    Skip(end + 1);
    return token;
}

}  // namespace documents
