#include "docfonts/table/TableReport.h"

#include <algorithm>
#include <vector>

#include "base/Plural.h"
#include "base/Strings.h"
#include "base/Utf8.h"
#include "docfonts/report/ReportWords.h"

namespace docfonts {

namespace {

constexpr char kIndent[] = "    ";

// The width of a column isn't made larger than that by one long entry.
constexpr size_t kWidestColumn = 48;

std::string GetStateText(const UsedFont& font)
{
    std::string text = GetWord(font.state);
    if (font.state == FontState::kOtherStyle) {
        text += " (" + base::MakePrintable(font.otherStyle) + ")";
    }
    return text;
}

std::string GetEmbeddingText(Embedding embedding)
{
    switch (embedding) {
        case Embedding::kNo:
            return ", not embedded";
        case Embedding::kSubset:
            return ", embedded as a subset";
        case Embedding::kWhole:
            return ", embedded";
        case Embedding::kUnknown:
            break;
    }
    return {};
}

std::string GetUseText(const UsedFont& font)
{
    std::string text;
    if (font.isListed) {
        text = "listed";
    } else if (font.runs == 0) {
        text = "named in a comment";
    } else {
        text = base::Count(font.frames, "frame") + ", " + base::Count(font.runs, "run") + ", " +
               base::Count(font.characters, "character");
    }
    return text + GetEmbeddingText(font.embedding);
}

size_t GetWidth(const std::string& text) { return base::CountCharacters(base::ToValidUtf8(text)); }

// Rows of texts, all but the last column as wide as their widest entry.
std::string Align(const std::vector<std::vector<std::string>>& rows, const std::string& indent)
{
    std::vector<size_t> widths;
    for (const std::vector<std::string>& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(GetWidth(row[i]), kWidestColumn));
        }
    }
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        std::string line = indent;
        for (size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 == row.size()) break;
            line.append(std::max(widths[i], GetWidth(row[i])) - GetWidth(row[i]) + 2, ' ');
        }
        text += std::string(base::TrimEnd(line)) + "\n";
    }
    return text;
}

std::string WriteDocument(const DocumentReport& report, const std::string& indent,
                          const std::string& title)
{
    std::string text = indent + title + base::MakePrintable(report.path) + ": ";
    if (!report.error.empty()) {
        return text + "failed: " + base::MakePrintable(report.error) + "\n";
    }
    text += report.format + " (" + report.reader + "), " + base::Count(report.fonts.size(), "font");
    text += report.isTemplate ? ", template\n" : "\n";
    std::vector<std::vector<std::string>> rows;
    for (const UsedFont& font : report.fonts) {
        rows.push_back({base::MakePrintable(font.postScriptName), GetStateText(font),
                        GetUseText(font), base::MakePrintable(font.file)});
    }
    text += Align(rows, indent + kIndent);
    for (const PlacedFile& file : report.placed) {
        text += indent + kIndent + "placed file: " + base::MakePrintable(file.path) + "  " +
                GetWord(file.state);
        if (file.state == PlacedState::kMoved) text += " to " + base::MakePrintable(file.foundAt);
        text += "\n";
    }
    if (!report.note.empty()) {
        text += indent + kIndent + "note: " + base::MakePrintable(report.note) + "\n";
    }
    return text;
}

}  // namespace

std::string WriteTable(const DocumentReport& report)
{
    std::string text = WriteDocument(report, "", "");
    for (const DocumentReport& document : report.placedDocuments) {
        text += WriteDocument(document, kIndent, "placed document: ");
    }
    return text;
}

}  // namespace docfonts
