#include "documents/bytes/Utf8.h"

#include <algorithm>

namespace documents {

namespace {

constexpr char kReplacement[] = "\xEF\xBF\xBD";
constexpr size_t kMessageBytes = 200;

bool IsBetween(unsigned char value, unsigned char low, unsigned char high)
{
    return value >= low && value <= high;
}

// How many bytes the character at the start of `bytes` takes, 0 if there is no valid one.
size_t GetCharacterLength(std::string_view bytes)
{
    auto at = [&](size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const unsigned char first = at(0);
    if (first < 0x80) return 1;
    size_t length = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (IsBetween(first, 0xC2, 0xDF)) {
        length = 2;
    } else if (IsBetween(first, 0xE0, 0xEF)) {
        length = 3;
        if (first == 0xE0) low = 0xA0;
        if (first == 0xED) high = 0x9F;
    } else if (IsBetween(first, 0xF0, 0xF4)) {
        length = 4;
        if (first == 0xF0) low = 0x90;
        if (first == 0xF4) high = 0x8F;
    }
    if (length == 0 || bytes.size() < length || !IsBetween(at(1), low, high)) return 0;
    for (size_t index = 2; index < length; ++index) {
        if (!IsBetween(at(index), 0x80, 0xBF)) return 0;
    }
    return length;
}

void AppendCharacter(unsigned long character, std::string& text)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned kFirstBytes[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kFirstBytes[following] | character >> (6 * following));
    for (int i = following - 1; i >= 0; --i) {
        text += static_cast<char>(0x80 | (character >> (6 * i) & 0x3F));
    }
}

}  // namespace

std::string ToValidUtf8(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const size_t length = GetCharacterLength(bytes);
        if (length == 0) {
            text += kReplacement;
        } else {
            text += bytes.substr(0, length);
        }
        bytes.remove_prefix(std::max<size_t>(length, 1));
    }
    return text;
}

size_t CountCharacters(std::string_view text)
{
    return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string FromUtf16(std::string_view bytes)
{
    constexpr unsigned long kReplacementCharacter = 0xFFFD;
    const auto unit = [bytes](size_t at) -> unsigned long {
        if (at + 1 >= bytes.size()) return 0;
        return static_cast<unsigned long>(static_cast<unsigned char>(bytes[at])) << 8 |
               static_cast<unsigned char>(bytes[at + 1]);
    };
    std::string text;
    for (size_t at = 0; at < bytes.size(); at += 2) {
        unsigned long character = at + 1 < bytes.size() ? unit(at) : kReplacementCharacter;
        if (character >= 0xD800 && character < 0xE000) {
            const unsigned long second = unit(at + 2);
            const bool isPair = character < 0xDC00 && second >= 0xDC00 && second < 0xE000;
            character = isPair ? 0x10000 + ((character - 0xD800) << 10) + (second - 0xDC00)
                               : kReplacementCharacter;
            if (isPair) at += 2;
        }
        AppendCharacter(character, text);
    }
    return text;
}

std::string ToMessageText(std::string_view bytes)
{
    std::string text = ToValidUtf8(bytes.substr(0, kMessageBytes));
    for (char& c : text) {
        const auto value = static_cast<unsigned char>(c);
        if (value < 0x20 || value == 0x7F) c = ' ';
    }
    return text;
}

}  // namespace documents
