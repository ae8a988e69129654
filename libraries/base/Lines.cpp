#include "base/Lines.h"

#include <algorithm>

namespace base {

namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

bool IsLineStart(std::string_view text, size_t position)
{
    return position == 0 || IsLineEnd(text[position - 1]);
}

}  // namespace

std::string_view TakeLine(std::string_view& rest)
{
    // Several times as fast as find_first_of, which matters in a drawing of many megabytes.
    const auto* const end = std::find_if(rest.begin(), rest.end(), IsLineEnd);
    const std::string_view line = rest.substr(0, static_cast<size_t>(end - rest.begin()));
    rest.remove_prefix(line.size());
    if (!rest.empty()) rest.remove_prefix(rest.substr(0, 2) == "\r\n" ? 2 : 1);
    return line;
}

std::vector<std::string> SplitLines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) lines.emplace_back(TakeLine(text));
    return lines;
}

size_t FindLine(std::string_view text, std::string_view start)
{
    size_t position = text.find(start);
    while (position != std::string_view::npos && !IsLineStart(text, position)) {
        position = text.find(start, position + 1);
    }
    return position;
}

size_t FindLastLine(std::string_view text, std::string_view start)
{
    size_t position = text.rfind(start);
    // Position 0 is a line's start: `position - 1` can't wrap.
    while (position != std::string_view::npos && !IsLineStart(text, position)) {
        position = text.rfind(start, position - 1);
    }
    return position;
}

}  // namespace base
