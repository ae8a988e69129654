#include "docfonts/html/SpecimenHtml.h"

#include <algorithm>
#include <string_view>

#include "base/Plural.h"
#include "docfonts/html/HtmlText.h"

namespace docfonts {
namespace {

// Characters of the large line; of scripts with wide characters and without spaces.
constexpr size_t kMostDisplay = 44;
constexpr size_t kMostWideDisplay = 22;

std::u32string CollapseSpaces(const std::u32string& text)
{
    std::u32string result;
    for (const char32_t character : text) {
        const bool isSpace = character == U' ' || character == 0xA0;
        if (isSpace && (result.empty() || result.back() == U' ')) continue;
        result += isSpace ? U' ' : character;
    }
    if (!result.empty() && result.back() == U' ') result.pop_back();
    return result;
}

bool IsWide(char32_t character) { return character >= 0x3040 && character < 0xFF00; }

// Whether a line can be broken in front of a character; never within a letter and its marks.
bool CanBreakBefore(const std::u32string& text, size_t position)
{
    return text[position] == U' ' || (IsWide(text[position]) && IsWide(text[position - 1]));
}

size_t GetDisplaySize(const std::u32string& text)
{
    const bool isWide = std::any_of(text.begin(), text.end(), IsWide);
    size_t position = isWide ? kMostWideDisplay : kMostDisplay;
    if (text.size() <= position) return text.size();
    while (position > 0 && !CanBreakBefore(text, position)) --position;
    return position == 0 ? text.size() : position;
}

// The characters from `first` up to `last`, those that the font lacks marked.
void AppendWords(const SpecimenText& text, const std::vector<bool>& lacks, size_t first,
                 size_t last, std::string& html)
{
    while (first < last) {
        const bool isLacking = first < lacks.size() && lacks[first];
        size_t end = first + 1;
        while (end < last && (end < lacks.size() && lacks[end]) == isLacking) ++end;
        if (isLacking) html += "<span class=\"lacking\">";
        AppendEscaped(std::u32string_view(text.characters).substr(first, end - first), html);
        if (isLacking) html += "</span>";
        first = end;
    }
}

void AppendParagraphs(const SpecimenText& text, const std::vector<bool>& lacks, std::string& html)
{
    html += "<p class=\"display\" dir=\"auto\">";
    AppendWords(text, lacks, 0, text.display, html);
    html += "</p>";
    const size_t rest = text.display;
    if (rest >= text.characters.size()) return;
    html += "<p class=\"text\" dir=\"auto\">";
    AppendWords(text, lacks, text.characters[rest] == U' ' ? rest + 1 : rest,
                text.characters.size(), html);
    html += "</p>";
}

void AppendCaption(const std::string& text, std::string& html)
{
    html += "<figcaption>";
    AppendName(text, html);
    html += "</figcaption>";
}

}  // namespace

SpecimenText GetSpecimenText(const UsedFont& font)
{
    SpecimenText text;
    text.characters = CollapseSpaces(ToShownText(font.words, kMostWordsBytes));
    if (text.characters.empty()) {
        text.isOwn = false;
        text.characters = U"The quick brown fox 0123456789";
    }
    text.display = GetDisplaySize(text.characters);
    return text;
}

void AppendDrawn(const SpecimenText& text, const Specimen& specimen, const UsedFont& font,
                 std::string& html)
{
    html += "<figure class=\"specimen\"><div class=\"words " + specimen.styleClass + "\">";
    AppendParagraphs(text, specimen.lacks, html);
    html += "</div>";
    if (font.state == FontState::kOtherStyle) {
        AppendCaption("Drawn in " + font.otherStyle + ", the style that is here.", html);
    }
    if (!text.isOwn) AppendCaption("A sample; the document's own words are not known.", html);
    const auto lacking =
        static_cast<size_t>(std::count(specimen.lacks.begin(), specimen.lacks.end(), true));
    if (lacking > 0) {
        AppendCaption("The font lacks " + base::Count(lacking, "character") +
                          " of these; they are underlined and drawn in another font.",
                      html);
    }
    html += "</figure>";
}

void AppendUndrawn(const SpecimenText& text, const std::string& reason, std::string& html)
{
    html += "<figure class=\"specimen undrawn\"><figcaption>";
    AppendName(reason, html);
    html += "</figcaption>";
    if (text.isOwn) {
        html += "<div class=\"words\">";
        AppendParagraphs(text, {}, html);
        html += "</div>";
    }
    html += "</figure>";
}

}  // namespace docfonts
