#pragma once

#include <cstddef>
#include <string_view>

namespace documents {

// Iterates over the lines of a native document, without their ends (CR, LF or both). Skips raster
// data between %%BeginData and %%EndData by its byte count; if the count is wrong, searches for
// %%EndData.
class NativeLines {
public:
    explicit NativeLines(std::string_view text) : mText(text) {}

    // Sets `line` to the next line that isn't empty, as a view into the text. Returns false at the
    // end of the text.
    bool Next(std::string_view& line);

    // The text after the line that Next returned last.
    std::string_view GetRest() const { return mText.substr(mPosition); }
    // Skips this many bytes of GetRest().
    void Skip(size_t bytes) { mPosition += bytes; }

private:
    void SkipData(std::string_view beginLine);

    std::string_view mText;
    size_t mPosition = 0;
};

}  // namespace documents
