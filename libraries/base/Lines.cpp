#include "base/Lines.h"

#include <cstdint>
#include <cstring>

namespace base {

namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

// Eight copies of a byte.
constexpr uint64_t Repeat(unsigned char byte) { return uint64_t{0x0101010101010101} * byte; }

// Returns a word whose lowest set bit is the highest bit of the first zero byte; 0 if there is
// none.
uint64_t FindZeros(uint64_t word) { return (word - Repeat(1)) & ~word & Repeat(0x80); }

bool IsLineStart(std::string_view text, size_t position)
{
    return position == 0 || IsLineEnd(text[position - 1]);
}

}  // namespace

size_t FindLineEnd(std::string_view text)
{
    // Eight bytes at a time: drawings have many megabytes.
    size_t position = 0;
    for (; position + sizeof(uint64_t) <= text.size(); position += sizeof(uint64_t)) {
        uint64_t word = 0;
        std::memcpy(&word, text.data() + position, sizeof word);
        const uint64_t ends = FindZeros(word ^ Repeat('\r')) | FindZeros(word ^ Repeat('\n'));
        if (ends == 0) continue;
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
        return position + static_cast<size_t>(__builtin_ctzll(ends)) / 8;
#else
        break;
#endif
    }
    while (position < text.size() && !IsLineEnd(text[position])) ++position;
    return position;
}

std::string_view TakeLine(std::string_view& rest)
{
    const std::string_view line = rest.substr(0, FindLineEnd(rest));
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

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
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
