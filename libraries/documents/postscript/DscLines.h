#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "documents/postscript/DscText.h"

namespace documents {

// Iterates over the structuring comments ("%%...") of a PostScript document. Lines end in CR, LF or
// both. Skips the data of %%BeginData and %%BeginBinary by its count, embedded documents
// (%%BeginDocument to %%EndDocument), and what is in embedded fonts and resources (%%BeginFont,
// %%BeginResource and %%BeginProcSet, each to its %%End...), but not their first line. One without
// an end isn't skipped.
class DscLines {
public:
    explicit DscLines(std::string_view bytes) : mRest(bytes) {}

    // Sets `comment` to the next comment, a view into the bytes. Returns false at the end.
    bool Next(DscComment& comment);

    // Whether the data of a %%BeginData extends past the end of the bytes.
    bool IsCutOff() const { return mCutOff; }

private:
    static constexpr size_t kResourceKinds = 3;

    void SkipData(const DscComment& begin);
    // If the present line begins a font or resource: skips it up to its end, with others of the
    // same kind that it contains.
    void SkipResource(const DscComment& begin);
    // Converts the count of a %%BeginData to bytes.
    size_t MeasureData(size_t count, bool countsLines) const;

    std::string_view mRest;
    size_t mNesting = 0;  // open %%BeginDocument
    bool mCutOff = false;
    // Of each kind of resource, whether the file has one without an end. From then on only those
    // are skipped that contain none of the same kind: searching each to the end of the file would
    // take too long.
    std::array<bool, kResourceKinds> mIsUnbalanced = {};
};

}  // namespace documents
