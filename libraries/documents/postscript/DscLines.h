#pragma once

#include <cstddef>
#include <string_view>

#include "documents/postscript/DscText.h"

namespace documents {

// Iterates over the structuring comments ("%%...") of a PostScript document. Lines end in CR, LF or
// both. Skips the data of %%BeginData and %%BeginBinary by its count, and embedded documents
// (%%BeginDocument to %%EndDocument).
class DscLines {
public:
    explicit DscLines(std::string_view bytes) : mRest(bytes) {}

    // Sets `comment` to the next comment, a view into the bytes. Returns false at the end.
    bool Next(DscComment& comment);

    // Whether the data of a %%BeginData extends past the end of the bytes.
    bool IsCutOff() const { return mCutOff; }

private:
    void SkipData(const DscComment& begin);
    // Converts the count of a %%BeginData to bytes.
    size_t MeasureData(size_t count, bool countsLines) const;

    std::string_view mRest;
    size_t mNesting = 0;  // open %%BeginDocument
    bool mCutOff = false;
};

}  // namespace documents
