#include "replay/DifferenceReport.h"

#include <algorithm>

namespace headless {

namespace {

constexpr size_t kWidth = 160;
constexpr size_t kHead = 60;    // shown of the beginning of a line that is cut
constexpr size_t kBefore = 30;  // shown before the difference

// The nearest place from `at` on where a character begins.
size_t FindCharacter(const std::string& text, size_t at)
{
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) ++at;
    return std::min(at, text.size());
}

// The line, or its beginning and what is around `at` if it is longer than kWidth.
std::string Shorten(const std::string& line, size_t at)
{
    if (line.size() <= kWidth) return line;
    const size_t start = at > kHead + kBefore ? FindCharacter(line, at - kBefore) : 0;
    std::string text;
    if (start > 0) text = line.substr(0, FindCharacter(line, kHead)) + " ... ";
    const size_t end = FindCharacter(line, start + kWidth);
    text += line.substr(start, end - start);
    return end < line.size() ? text + " ..." : text;
}

std::string WriteLines(const char* title, const std::vector<std::string>& before, size_t number,
                       const std::string& line, size_t at)
{
    std::string text = std::string(title) + "\n";
    for (const std::string& each : before) text += "    " + Shorten(each, 0) + "\n";
    return text + "  > " + std::to_string(number) + "  " + Shorten(line, at) + "\n";
}

}  // namespace

std::string WriteDifference(const ReplayDifference& difference)
{
    const std::string came = difference.came.empty() ? "(nothing)" : difference.came;
    const std::string& expected = difference.expected;
    const size_t shorter = std::min(expected.size(), came.size());
    size_t at = 0;
    while (at < shorter && expected[at] == came[at]) ++at;
    return WriteLines("recorded:", difference.before, difference.line, expected, at) +
           WriteLines("now:", difference.cameBefore, difference.line, came, at);
}

}  // namespace headless
