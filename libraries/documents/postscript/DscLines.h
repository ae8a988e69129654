#pragma once

#include <cstddef>
#include <string_view>

#include "documents/postscript/DscText.h"

namespace documents {

// Gives the structuring comments of a PostScript document one after the other. Lines end in CR, LF
// or both. Data between %%BeginData or %%BeginBinary and its end is skipped by the count that
// stands there, and documents within the document are passed over.
class DscLines {
public:
    explicit DscLines(std::string_view bytes) : mRest(bytes) {}

    // False at the end. The comment is a view into the bytes.
    bool Next(DscComment& comment);

    // The data of a %%BeginData goes beyond the end of the bytes.
    bool IsCutOff() const { return mCutOff; }

private:
    std::string_view TakeLine();
    void SkipData(const DscComment& begin);
    size_t MeasureData(size_t count, bool countsLines) const;

    std::string_view mRest;
    size_t mNesting = 0;
    bool mCutOff = false;
};

}  // namespace documents
