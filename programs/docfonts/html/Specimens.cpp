#include "docfonts/html/Specimens.h"

#include <algorithm>
#include <iterator>

#include "base/Strings.h"
#include "docfonts/html/HtmlText.h"

namespace docfonts {
namespace {

bool Contains(const std::vector<fonts::CharacterRange>& ranges, char32_t character)
{
    const auto behind = std::upper_bound(
        ranges.begin(), ranges.end(), character,
        [](char32_t c, const fonts::CharacterRange& range) { return c < range.first; });
    return behind != ranges.begin() && character <= std::prev(behind)->last;
}

// Browsers draw nothing for these, or use the glyph of another character.
bool NeedsNoGlyph(char32_t character)
{
    return character == U' ' || character == 0xA0 || character == 0xAD || character == 0xFEFF ||
           (character >= 0x200B && character <= 0x200D) ||
           (character >= 0x2060 && character <= 0x2064) ||
           (character >= 0xFE00 && character <= 0xFE0F);
}

void Insert(char32_t character, std::u32string& sorted)
{
    const auto place = std::lower_bound(sorted.begin(), sorted.end(), character);
    if (place == sorted.end() || *place != character) sorted.insert(place, character);
}

std::string FormatAxes(const std::vector<fonts::AxisValue>& axes)
{
    std::string text;
    for (const fonts::AxisValue& axis : axes) {
        text += (text.empty() ? ";font-variation-settings:\"" : ",\"") + axis.tag + "\" " +
                std::to_string(axis.value);
    }
    return text;
}

}  // namespace

Specimens::Face* Specimens::Find(const UsedFont& font, const std::u32string& words)
{
    const std::string key = font.file + '\0' + std::to_string(font.faceIndex);
    const auto known = mNumbers.find(key);
    if (known != mNumbers.end()) return &mFaces[known->second];
    if (mFaces.size() >= kMostFaces) return nullptr;
    // Making a subset at once shows whether it will be possible.
    fonts::FontSubset subset = fonts::MakeFontSubset(font.file, font.faceIndex, words);
    mNumbers.emplace(key, mFaces.size());
    Face face;
    face.name = "s" + std::to_string(mFaces.size());
    face.file = font.file;
    face.index = font.faceIndex;
    face.available = std::move(subset.available);
    // Other words can have glyphs.
    if (face.available.empty() || subset.missing == 0) face.problem = std::move(subset.problem);
    mFaces.push_back(std::move(face));
    return &mFaces.back();
}

Specimen Specimens::Add(const UsedFont& font, const std::u32string& words)
{
    Specimen result;
    Face* const face = Find(font, words);
    if (face == nullptr) {
        result.problem = "the report has specimens of " + FormatNumber(kMostFaces) + " fonts only";
        return result;
    }
    result.problem = face->problem;
    if (!result.problem.empty()) return result;
    for (const char32_t character : words) {
        const bool isAvailable = Contains(face->available, character);
        const bool isNew = isAvailable && !std::binary_search(face->characters.begin(),
                                                              face->characters.end(), character);
        const bool fits = face->characters.size() < kMostCharacters;
        if (isNew && fits) Insert(character, face->characters);
        result.lacks.push_back((!isAvailable && !NeedsNoGlyph(character)) || (isNew && !fits));
    }
    const auto isDrawn = [&](size_t position) {
        return !result.lacks[position] && !NeedsNoGlyph(words[position]);
    };
    for (size_t position = 0; position < words.size() && result.styleClass.empty(); ++position) {
        if (isDrawn(position)) result.styleClass = face->name;
    }
    if (result.styleClass.empty()) result.problem = "has none of the characters";
    return result;
}

void Specimens::WriteStyles(const std::function<void(std::string_view)>& write) const
{
    for (const Face& face : mFaces) {
        if (face.characters.empty()) continue;
        const fonts::FontSubset subset =
            fonts::MakeFontSubset(face.file, face.index, face.characters);
        if (subset.bytes.empty()) {
            write("." + face.name + " p{display:none}." + face.name +
                  "::before{content:\"The font file has changed\"}\n");
            continue;
        }
        const bool isOpenType = base::StartsWith(subset.bytes, "OTTO");
        write("@font-face{font-family:" + face.name + ";src:url(data:font/" +
              (isOpenType ? "otf" : "ttf") + ";base64,");
        write(EncodeBase64(subset.bytes));
        write(")}." + face.name + "{font-family:" + face.name + ",sans-serif" +
              FormatAxes(subset.axes) + "}\n");
    }
}

}  // namespace docfonts
