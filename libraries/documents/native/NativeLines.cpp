#include "documents/native/NativeLines.h"

#include <algorithm>
#include <charconv>

#include "base/Lines.h"
#include "base/Strings.h"
#include "documents/native/NativeKeys.h"

namespace documents {

namespace {

constexpr size_t kLineEndBytes = 4;
constexpr size_t kMaximumLine = 64;  // a %%BeginData line that is longer has no usable count

}  // namespace

bool NativeLines::Next(std::string_view& line)
{
    while (mPosition < mText.size()) {
        const std::string_view rest = GetRest();
        line = rest.substr(0, base::FindLineEnd(rest));
        mPosition += std::min(line.size() + 1, rest.size());
        if (line.empty()) continue;
        if (line.front() == '%' && base::StartsWith(line, record::kBeginData)) SkipData(line);
        return true;
    }
    return false;
}

void NativeLines::SkipData(std::string_view beginLine)
{
    beginLine.remove_prefix(record::kBeginData.size());
    beginLine.remove_prefix(std::min(beginLine.find_first_not_of(' '), beginLine.size()));
    size_t count = 0;
    const char* const last = beginLine.data() + beginLine.size();
    const bool hasCount = std::from_chars(beginLine.data(), last, count).ec == std::errc() &&
                          beginLine.size() < kMaximumLine;
    const std::string_view rest = GetRest();
    size_t end = std::string_view::npos;
    if (hasCount && count <= rest.size()) {
        // Some files don't include the line ends around the data in the count.
        end =
            rest.substr(count, record::kEndData.size() + 2 * kLineEndBytes).find(record::kEndData);
        if (end != std::string_view::npos) end += count;
    }
    if (end == std::string_view::npos) end = rest.find(record::kEndData);
    // Without an end mark, skip nothing: the rest of the document would be lost.
    if (end != std::string_view::npos) mPosition += end;
}

}  // namespace documents
