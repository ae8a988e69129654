#pragma once

#include <cstddef>
#include <string_view>

namespace documents {

// The lines of a native document one after the other, without their ends (CR, LF or both). Raster
// data between %%BeginData and %%EndData is passed over by the count that stands there; if that
// doesn't lead to its end, the end is looked for.
class NativeLines {
public:
    explicit NativeLines(std::string_view text) : mText(text) {}

    // False at the end. The line is a view into the text; empty lines are passed over.
    bool Next(std::string_view& line);

    // What stands behind the line that was given last.
    std::string_view GetRest() const { return mText.substr(mPosition); }
    void Skip(size_t bytes) { mPosition += bytes; }

    // From the start of the line that was given last to the end of the text.
    std::string_view GetFromLine() const { return mText.substr(mLineStart); }

    // Goes on behind the first `bytes` bytes of GetFromLine.
    void SkipFromLine(size_t bytes) { mPosition = mLineStart + bytes; }

private:
    void SkipData(std::string_view beginLine);

    std::string_view mText;
    size_t mPosition = 0;
    size_t mLineStart = 0;
};

}  // namespace documents
