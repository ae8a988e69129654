#pragma once

#include <array>
#include <cstdint>
#include <unordered_set>

#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// What a reader has to know of a document first.
enum class DocumentState { kComplete, kIncomplete, kUnread };

// Incomplete if a font isn't here in its style, or a placed file isn't where the document says. The
// placed documents are counted as parts of it.
DocumentState GetState(const DocumentReport& document);

// The numbers of a report. Fonts are counted once however many documents use them, up to
// kMostFonts. Not thread-safe.
class Totals {
public:
    static constexpr size_t kMostFonts = 200'000;
    static constexpr size_t kStates = 4;

    void Add(const DocumentReport& document);

    uint64_t GetDocuments() const { return mDocuments[0] + mDocuments[1] + mDocuments[2]; }
    uint64_t Get(DocumentState state) const { return mDocuments[static_cast<size_t>(state)]; }
    uint64_t Get(FontState state) const { return mFonts[static_cast<size_t>(state)]; }
    uint64_t Get(PlacedState state) const { return mPlaced[static_cast<size_t>(state)]; }
    bool IsFull() const { return mNames.size() >= kMostFonts; }

private:
    void AddParts(const DocumentReport& document);

    std::array<uint64_t, 3> mDocuments = {};
    std::array<uint64_t, kStates> mFonts = {};
    std::array<uint64_t, 3> mPlaced = {};
    std::unordered_set<uint64_t> mNames;  // hashes of name and state
};

}  // namespace docfonts
