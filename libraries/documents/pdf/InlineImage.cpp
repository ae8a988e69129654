#include "documents/pdf/InlineImage.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "documents/bytes/PdfCharacters.h"

namespace documents {

namespace {

constexpr size_t kLookahead = 16;

struct ImageDictionary {
    size_t width = 0;
    size_t height = 0;
    size_t bits = 0;
    size_t components = 0;  // 0: the colour space is a resource
    bool isMask = false;
    bool hasFilter = false;
    std::optional<size_t> length;
};

size_t GetCount(std::string_view text)
{
    size_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() ? value : 0;
}

size_t GetComponents(const Token& value)
{
    if (value.text == "G" || value.text == "DeviceGray") return 1;
    if (value.text == "RGB" || value.text == "DeviceRGB") return 3;
    if (value.text == "CMYK" || value.text == "DeviceCMYK") return 4;
    // An array is an indexed colour space.
    return value.type == TokenType::kArrayOpen ? 1 : 0;
}

void SetEntry(std::string_view key, const Token& value, ImageDictionary& dictionary)
{
    if (key == "W" || key == "Width") dictionary.width = GetCount(value.text);
    if (key == "H" || key == "Height") dictionary.height = GetCount(value.text);
    if (key == "BPC" || key == "BitsPerComponent") dictionary.bits = GetCount(value.text);
    if (key == "CS" || key == "ColorSpace") dictionary.components = GetComponents(value);
    if (key == "IM" || key == "ImageMask") dictionary.isMask = value.text == "true";
    if (key == "F" || key == "Filter") dictionary.hasFilter = true;
    if (key == "L" || key == "Length") dictionary.length = GetCount(value.text);
}

// Reads up to and including ID. Returns false if another operator or the end comes first.
bool ReadDictionary(ContentLexer& lexer, ImageDictionary& dictionary)
{
    std::string_view key;
    size_t depth = 0;
    for (;;) {
        const Token token = lexer.Next();
        switch (token.type) {
            case TokenType::kEnd:
                return false;
            case TokenType::kOperator:
                if (token.text == "ID") return true;
                if (token.text != "true" && token.text != "false" && token.text != "null") {
                    return false;
                }
                break;
            case TokenType::kArrayClose:
            case TokenType::kDictionaryClose:
                if (depth > 0) --depth;
                continue;
            default:
                break;
        }
        if (depth == 0) {
            if (key.empty() && token.type == TokenType::kName) {
                key = token.text;
            } else {
                SetEntry(key, token, dictionary);
                key = {};
            }
        }
        if (token.type == TokenType::kArrayOpen || token.type == TokenType::kDictionaryOpen) {
            ++depth;
        }
    }
}

bool IsEndMark(std::string_view data, size_t position)
{
    return data.substr(position, 2) == "EI" &&
           (position + 2 >= data.size() || IsPdfSpace(data[position + 2]));
}

// Computes the position of EI from the dictionary. Returns nothing if that isn't possible or EI
// isn't there.
std::optional<size_t> FindComputedEnd(std::string_view data, const ImageDictionary& dictionary)
{
    std::optional<size_t> length = dictionary.length;
    if (!length && !dictionary.hasFilter) {
        const size_t pixelBits = dictionary.isMask ? 1 : dictionary.bits * dictionary.components;
        // No inline image exceeds 64 bits per pixel or 65,536 pixels per side.
        constexpr size_t kSide = 65536;
        if (pixelBits > 0 && pixelBits <= 64 && dictionary.width <= kSide &&
            dictionary.height <= kSide) {
            length = (dictionary.width * pixelBits + 7) / 8 * dictionary.height;
        }
    }
    if (!length || *length > data.size()) return std::nullopt;
    size_t position = *length;
    while (position < data.size() && IsPdfSpace(data[position])) ++position;
    if (!IsEndMark(data, position)) return std::nullopt;
    return position;
}

// Searches for EI; without one, returns the end of the data.
size_t FindLikelyEnd(std::string_view data)
{
    auto looksLikeContent = [](char c) { return IsPdfSpace(c) ? c != 0 : c > 32 && c < 127; };
    size_t fallback = data.size();
    for (size_t position = data.find("EI"); position != std::string_view::npos;
         position = data.find("EI", position + 1)) {
        if (!IsEndMark(data, position)) continue;
        if (position > 0 && !IsPdfSpace(data[position - 1])) continue;
        if (fallback == data.size()) fallback = position;
        const std::string_view behind =
            position + 2 < data.size() ? data.substr(position + 2, kLookahead) : "";
        if (std::all_of(behind.begin(), behind.end(), looksLikeContent)) return position;
    }
    return fallback;
}

}  // namespace

void SkipInlineImage(ContentLexer& lexer)
{
    ContentLexer inside = lexer;
    ImageDictionary dictionary;
    if (!ReadDictionary(inside, dictionary)) return;
    if (!inside.GetRest().empty() && IsPdfSpace(inside.GetRest().front())) inside.Skip(1);
    const std::string_view data = inside.GetRest();
    const std::optional<size_t> computed = FindComputedEnd(data, dictionary);
    inside.Skip((computed ? *computed : FindLikelyEnd(data)) + 2);
    lexer = inside;
}

}  // namespace documents
