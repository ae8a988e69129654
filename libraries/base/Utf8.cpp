#include "base/Utf8.h"

#include <utf8.h>

#include <iterator>

namespace base {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kBehindSurrogates = 0xE000;
constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsSurrogate(char32_t unit) { return unit >= kFirstSurrogate && unit < kBehindSurrogates; }
bool IsLowSurrogate(char32_t unit)
{
    return unit >= kFirstLowSurrogate && unit < kBehindSurrogates;
}

// The unit of UTF-16 at `position`; 0, which is no surrogate, behind the last whole one.
char32_t GetUnit(std::string_view bytes, size_t position)
{
    if (position + 1 >= bytes.size()) return 0;
    const auto high = static_cast<unsigned char>(bytes[position]);
    const auto low = static_cast<unsigned char>(bytes[position + 1]);
    return static_cast<char32_t>(high << 8 | low);
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) { return utf8::is_valid(bytes.begin(), bytes.end()); }

std::string ToValidUtf8(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const auto* start = bytes.begin(); start != bytes.end();) {
        const auto* const wrong = utf8::find_invalid(start, bytes.end());
        text.append(start, wrong);
        start = wrong;
        if (wrong == bytes.end()) break;
        // utf8::replace_invalid would replace several bytes by one character.
        AppendCharacter(kReplacement, text);
        ++start;
    }
    return text;
}

size_t CountCharacters(std::string_view text)
{
    size_t count = 0;
    for (const char c : text) {
        const bool continuesCharacter = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
        if (!continuesCharacter) ++count;
    }
    return count;
}

void AppendCharacter(char32_t character, std::string& text)
{
    const bool isValid = character <= kLastCharacter && !IsSurrogate(character);
    utf8::append(isValid ? character : kReplacement, std::back_inserter(text));
}

std::string FromUtf16(std::string_view bytes)
{
    std::string text;
    for (size_t position = 0; position + 1 < bytes.size(); position += 2) {
        char32_t character = GetUnit(bytes, position);
        const char32_t next = GetUnit(bytes, position + 2);
        if (IsSurrogate(character) && !IsLowSurrogate(character) && IsLowSurrogate(next)) {
            character =
                0x10000 + ((character - kFirstSurrogate) << 10) + (next - kFirstLowSurrogate);
            position += 2;
        }
        AppendCharacter(character, text);
    }
    if (bytes.size() % 2 != 0) AppendCharacter(kReplacement, text);
    return text;
}

std::string ToMessageText(std::string_view bytes)
{
    constexpr size_t kMostBytes = 200;
    std::string text = ToValidUtf8(bytes.substr(0, kMostBytes));
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
    }
    return text;
}

}  // namespace base
