#include "docfonts/report/ReportWords.h"

#include <algorithm>

namespace docfonts {

const char* GetWord(FontState state)
{
    switch (state) {
        case FontState::kInstalled:
            return "installed";
        case FontState::kInLibrary:
            return "in the library";
        case FontState::kOtherStyle:
            return "only as another style";
        case FontState::kMissing:
            break;
    }
    return "missing";
}

const char* GetWord(Embedding embedding)
{
    switch (embedding) {
        case Embedding::kNo:
            return "no";
        case Embedding::kSubset:
            return "subset";
        case Embedding::kWhole:
            return "whole";
        case Embedding::kUnknown:
            break;
    }
    return "unknown";
}

const char* GetWord(PlacedState state)
{
    switch (state) {
        case PlacedState::kFound:
            return "found";
        case PlacedState::kMoved:
            return "moved";
        case PlacedState::kMissing:
            break;
    }
    return "missing";
}

bool IsMissing(const UsedFont& font)
{
    return font.state == FontState::kMissing || font.state == FontState::kOtherStyle;
}

bool IsMissing(const PlacedFile& file) { return file.state == PlacedState::kMissing; }

bool LacksAnything(const DocumentReport& report)
{
    const auto isMissing = [](const auto& part) { return IsMissing(part); };
    return std::any_of(report.fonts.begin(), report.fonts.end(), isMissing) ||
           std::any_of(report.placed.begin(), report.placed.end(), isMissing) ||
           std::any_of(report.placedDocuments.begin(), report.placedDocuments.end(), LacksAnything);
}

void KeepMissing(DocumentReport& report)
{
    const auto isHere = [](const auto& part) { return !IsMissing(part); };
    auto& fonts = report.fonts;
    fonts.erase(std::remove_if(fonts.begin(), fonts.end(), isHere), fonts.end());
    auto& placed = report.placed;
    placed.erase(std::remove_if(placed.begin(), placed.end(), isHere), placed.end());
    auto& inner = report.placedDocuments;
    for (DocumentReport& document : inner) KeepMissing(document);
    inner.erase(std::remove_if(inner.begin(), inner.end(),
                               [](const DocumentReport& document) {
                                   return document.error.empty() && !LacksAnything(document);
                               }),
                inner.end());
}

}  // namespace docfonts
