#include "docfonts/html/DocumentHtml.h"

#include <algorithm>
#include <vector>

#include "base/Plural.h"
#include "docfonts/html/HtmlText.h"
#include "docfonts/html/SpecimenHtml.h"
#include "docfonts/html/StateWords.h"
#include "docfonts/html/Totals.h"

namespace docfonts {
namespace {

const char* GetWord(Embedding embedding)
{
    switch (embedding) {
        case Embedding::kNo:
            return "no";
        case Embedding::kSubset:
            return "as a subset";
        case Embedding::kWhole:
            return "whole";
        case Embedding::kUnknown:
            break;
    }
    return "–";
}

// 0 is a number that the reader doesn't know.
std::string FormatUse(uint64_t number) { return number == 0 ? "–" : FormatNumber(number); }

void AppendUse(const char* heading, uint64_t number, std::string& html)
{
    html += std::string("<td class=\"number\" data-label=\"") + heading + "\">" +
            FormatUse(number) + "</td>";
}

// The folder of a path is less important than the name.
void AppendPath(const std::string& path, std::string& html)
{
    const size_t slash = path.rfind('/');
    const size_t name = slash == std::string::npos || slash + 1 == path.size() ? 0 : slash + 1;
    html += "<bdi class=\"path\">";
    if (name > 0) {
        html += "<span class=\"folder\">";
        AppendName(path.substr(0, name), html);
        html += "</span><wbr>";
    }
    AppendName(path.substr(name), html);
    html += "</bdi>";
}

void AppendHeading(const DocumentReport& document, unsigned depth, std::string& html)
{
    constexpr unsigned kFirstLevel = 3;
    constexpr unsigned kLastLevel = 6;
    const std::string level = std::to_string(std::min(kFirstLevel + depth, kLastLevel));
    html += "<header><h" + level + ">";
    AppendPath(document.path, html);
    html += "</h" + level + ">";
    AppendBadge(GetWords(GetState(document)), html);
    html += "<p class=\"facts\"><span class=\"format\">";
    AppendName(document.format, html);
    html += "</span>";
    if (document.error.empty()) {
        html += " " + base::Count(document.fonts.size(), "font");
        if (!document.placed.empty()) {
            html += ", " + base::Count(document.placed.size(), "placed file");
        }
    }
    html += "</p></header>\n";
}

// Those that need attention first; otherwise in the document's order.
std::vector<const UsedFont*> SortFonts(const std::vector<UsedFont>& fonts)
{
    std::vector<const UsedFont*> sorted;
    sorted.reserve(fonts.size());
    for (const FontState state : {FontState::kMissing, FontState::kOtherStyle,
                                  FontState::kInLibrary, FontState::kInstalled}) {
        for (const UsedFont& font : fonts) {
            if (font.state == state) sorted.push_back(&font);
        }
    }
    return sorted;
}

}  // namespace

std::string DocumentHtml::Write(const DocumentReport& document)
{
    std::string html;
    AppendDocument(document, 0, html);
    return html;
}

void DocumentHtml::AppendDocument(const DocumentReport& document, unsigned depth, std::string& html)
{
    ++mNumber;
    NoteDemand(document);
    html += std::string("<article class=\"") + (depth == 0 ? "document " : "placed ") +
            GetWords(GetState(document)).style + "\" id=\"d" + std::to_string(mNumber) + "\">\n";
    AppendHeading(document, depth, html);
    if (!document.error.empty()) {
        html += "<p class=\"error\">";
        AppendName(document.error, html);
        html += "</p>\n";
    }
    AppendFonts(document, html);
    AppendPlaced(document, html);
    for (const DocumentReport& placed : document.placedDocuments) {
        AppendDocument(placed, depth + 1, html);
    }
    html += "</article>\n";
}

void DocumentHtml::AppendFonts(const DocumentReport& document, std::string& html)
{
    if (document.fonts.empty()) {
        if (document.error.empty()) html += "<p class=\"none\">It uses no font.</p>\n";
        return;
    }
    html +=
        "<table class=\"fonts\"><caption>Fonts</caption><thead><tr><th scope=\"col\">Font</th>"
        "<th scope=\"col\">State</th><th scope=\"col\" class=\"number\">Frames</th>"
        "<th scope=\"col\" class=\"number\">Runs</th>"
        "<th scope=\"col\" class=\"number\">Characters</th>"
        "<th scope=\"col\">Embedded</th></tr></thead>\n";
    for (const UsedFont* font : SortFonts(document.fonts)) AppendFont(*font, html);
    html += "</table>\n";
}

void DocumentHtml::AppendFont(const UsedFont& font, std::string& html)
{
    const StateWords& words = GetWords(font.state);
    html += std::string("<tbody class=\"") + words.style + "\"><tr><th scope=\"row\"><bdi>";
    AppendName(font.postScriptName, html);
    html += "</bdi>";
    if (!font.family.empty() || !font.style.empty()) {
        html += " <small><bdi>";
        AppendName(font.family, html);
        html += "</bdi> <bdi>";
        AppendName(font.style, html);
        html += "</bdi></small>";
    }
    html += "</th><td>";
    AppendBadge(words, html);
    html += "</td>";
    AppendUse("frames", font.frames, html);
    AppendUse("runs", font.runs, html);
    AppendUse("characters", font.characters, html);
    html += std::string("<td data-label=\"embedded\">") + GetWord(font.embedding) + "</td></tr>\n";
    html += "<tr class=\"shown\"><td colspan=\"6\">";
    AppendSpecimen(font, html);
    html += "</td></tr></tbody>\n";
}

void DocumentHtml::AppendSpecimen(const UsedFont& font, std::string& html)
{
    const SpecimenText text = GetSpecimenText(font);
    if (font.state == FontState::kMissing || font.file.empty()) {
        AppendUndrawn(text, "Missing. Its words, in another font:", html);
        return;
    }
    const Specimen specimen = mSpecimens.Add(font, text.characters);
    if (specimen.styleClass.empty()) {
        AppendUndrawn(text,
                      "No specimen; font file: " + specimen.problem +
                          ". Its words, in "
                          "another font:",
                      html);
    } else {
        AppendDrawn(text, specimen, font, html);
    }
    html += "<p class=\"source\"><bdi>";
    AppendName(font.file, html);
    html += "</bdi>";
    constexpr int kFaceMask = 0xffff;
    if ((font.faceIndex & kFaceMask) != 0) {
        html += ", face " + std::to_string((font.faceIndex & kFaceMask) + 1);
    }
    html += "</p>";
}

void DocumentHtml::AppendPlaced(const DocumentReport& document, std::string& html)
{
    if (document.placed.empty()) return;
    html +=
        "<table class=\"files\"><caption>Placed files</caption><thead><tr>"
        "<th scope=\"col\">File</th><th scope=\"col\">State</th></tr></thead><tbody>\n";
    for (const PlacedFile& file : document.placed) {
        const StateWords& words = GetWords(file.state);
        html += std::string("<tr class=\"") + words.style + "\"><th scope=\"row\">";
        AppendPath(file.path, html);
        if (file.state == PlacedState::kMoved) {
            html += "<p class=\"source\">is at <bdi>";
            AppendName(file.foundAt, html);
            html += "</bdi></p>";
        }
        html += "</th><td>";
        AppendBadge(words, html);
        html += "</td></tr>\n";
    }
    html += "</tbody></table>\n";
}

void DocumentHtml::NoteDemand(const DocumentReport& document)
{
    for (const UsedFont& font : document.fonts) {
        if (font.state == FontState::kMissing) {
            const std::string detail = font.family + (font.style.empty() ? "" : " " + font.style);
            mDemands.fonts.Add(font.postScriptName, detail, mNumber, document.path);
        } else if (font.state == FontState::kOtherStyle) {
            mDemands.styles.Add(font.postScriptName, font.otherStyle, mNumber, document.path);
        }
    }
    for (const PlacedFile& file : document.placed) {
        if (file.state != PlacedState::kMissing) continue;
        mDemands.files.Add(file.path, {}, mNumber, document.path);
    }
}

}  // namespace docfonts
