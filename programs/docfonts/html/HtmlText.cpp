#include "docfonts/html/HtmlText.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

#include "base/Utf8.h"

namespace docfonts {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsIn(char32_t character, char32_t first, char32_t last)
{
    return character >= first && character <= last;
}

bool IsLineEndOrTab(char32_t character)
{
    return IsIn(character, 0x09, 0x0D) || IsIn(character, 0x2028, 0x2029);
}

bool IsForbidden(char32_t character)
{
    return character < 0x20 || IsIn(character, 0x7F, 0x9F) || IsIn(character, 0xFDD0, 0xFDEF) ||
           (character & 0xFFFE) == 0xFFFE;
}

bool ChangesDirection(char32_t character)
{
    return IsIn(character, 0x200E, 0x200F) || IsIn(character, 0x202A, 0x202E) ||
           IsIn(character, 0x2066, 0x2069) || character == 0x061C;
}

}  // namespace

std::u32string ToShownText(std::string_view bytes, size_t most)
{
    // A character has at most four bytes. A character that is cut there isn't among the first.
    const bool isCut = bytes.size() > 4 * (most + 1);
    const std::string valid = base::ToValidUtf8(bytes.substr(0, 4 * (most + 1)));
    std::u32string text;
    utf8::utf8to32(valid.begin(), valid.end(), std::back_inserter(text));
    if (isCut || text.size() > most) {
        text.resize(std::min(most, text.size()));
        text += U'…';
    }
    for (char32_t& character : text) {
        if (IsLineEndOrTab(character)) {
            character = U' ';
        } else if (IsForbidden(character) || ChangesDirection(character)) {
            character = kReplacement;
        }
    }
    return text;
}

void AppendEscaped(std::u32string_view text, std::string& html)
{
    for (const char32_t character : text) {
        switch (character) {
            case U'&':
                html += "&amp;";
                break;
            case U'<':
                html += "&lt;";
                break;
            case U'>':
                html += "&gt;";
                break;
            case U'"':
                html += "&quot;";
                break;
            case U'\'':
                html += "&#39;";
                break;
            default:
                base::AppendCharacter(character, html);
        }
    }
}

void AppendName(std::string_view bytes, std::string& html)
{
    AppendEscaped(ToShownText(bytes, kMostNameCharacters), html);
}

std::string FormatNumber(uint64_t number)
{
    std::string text = std::to_string(number);
    for (size_t position = text.size(); position > 3;) {
        position -= 3;
        text.insert(position, ",");
    }
    return text;
}

std::string EncodeBase64(std::string_view bytes)
{
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (size_t start = 0; start < bytes.size(); start += 3) {
        const size_t count = std::min<size_t>(3, bytes.size() - start);
        uint32_t bits = 0;
        for (size_t byte = 0; byte < 3; ++byte) {
            const auto value =
                byte < count ? static_cast<unsigned char>(bytes[start + byte]) : uint32_t{0};
            bits = bits << 8U | value;
        }
        for (size_t digit = 0; digit < 4; ++digit) {
            text += digit <= count ? kDigits[bits >> (18 - 6 * digit) & 63U] : '=';
        }
    }
    return text;
}

}  // namespace docfonts
