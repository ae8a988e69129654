#include "documents/native/NativeLines.h"

#include <algorithm>
#include <charconv>

namespace documents {

namespace {

constexpr std::string_view kBegin = "%%BeginData:";
constexpr std::string_view kEnd = "%%EndData";
constexpr size_t kLineEndBytes = 4;

}  // namespace

bool NativeLines::Next(std::string_view& line)
{
    while (mPosition < mText.size()) {
        const char* const start = mText.data() + mPosition;
        const char* const end = mText.data() + mText.size();
        const char* stop = start;
        while (stop != end && *stop != '\r' && *stop != '\n') ++stop;
        mLineStart = mPosition;
        line = {start, static_cast<size_t>(stop - start)};
        mPosition += line.size() + (stop == end ? 0 : 1);
        if (line.empty()) continue;
        if (line.substr(0, kBegin.size()) == kBegin) SkipData(line);
        return true;
    }
    return false;
}

void NativeLines::SkipData(std::string_view beginLine)
{
    beginLine.remove_prefix(kBegin.size());
    beginLine.remove_prefix(std::min(beginLine.find_first_not_of(' '), beginLine.size()));
    size_t count = 0;
    const char* const last = beginLine.data() + beginLine.size();
    const bool hasCount =
        std::from_chars(beginLine.data(), last, count).ec == std::errc() && beginLine.size() < 64;
    const std::string_view rest = GetRest();
    size_t end = std::string_view::npos;
    if (hasCount && count <= rest.size()) {
        // Line ends around the data aren't always counted.
        end = rest.substr(count, kEnd.size() + 2 * kLineEndBytes).find(kEnd);
        if (end != std::string_view::npos) end += count;
    }
    if (end == std::string_view::npos) end = rest.find(kEnd);
    // Data without an end is no data: what stands behind it would be lost.
    if (end != std::string_view::npos) mPosition += end;
}

}  // namespace documents
