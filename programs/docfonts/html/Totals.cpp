#include "docfonts/html/Totals.h"

#include <algorithm>
#include <functional>
#include <string>

namespace docfonts {

DocumentState GetState(const DocumentReport& document)
{
    if (!document.error.empty()) return DocumentState::kUnread;
    const auto isFontHere = [](const UsedFont& font) {
        return font.state == FontState::kInstalled || font.state == FontState::kInLibrary;
    };
    const auto isFileHere = [](const PlacedFile& file) {
        return file.state == PlacedState::kFound;
    };
    const auto isComplete = [](const DocumentReport& placed) {
        return GetState(placed) == DocumentState::kComplete;
    };
    const bool hasAll =
        std::all_of(document.fonts.begin(), document.fonts.end(), isFontHere) &&
        std::all_of(document.placed.begin(), document.placed.end(), isFileHere) &&
        std::all_of(document.placedDocuments.begin(), document.placedDocuments.end(), isComplete);
    return hasAll ? DocumentState::kComplete : DocumentState::kIncomplete;
}

void Totals::Add(const DocumentReport& document)
{
    ++mDocuments[static_cast<size_t>(GetState(document))];
    AddParts(document);
}

void Totals::AddParts(const DocumentReport& document)
{
    for (const UsedFont& font : document.fonts) {
        const auto state = static_cast<size_t>(font.state);
        const uint64_t hash = std::hash<std::string>()(font.postScriptName) * kStates + state;
        if (!IsFull() && mNames.insert(hash).second) ++mFonts[state];
    }
    for (const PlacedFile& file : document.placed) ++mPlaced[static_cast<size_t>(file.state)];
    for (const DocumentReport& placed : document.placedDocuments) AddParts(placed);
}

}  // namespace docfonts
