#include "base/Strings.h"

#include <algorithm>

namespace base {

std::string_view Trim(std::string_view text, std::string_view spaces)
{
    text.remove_prefix(std::min(text.find_first_not_of(spaces), text.size()));
    return TrimEnd(text, spaces);
}

std::string_view TrimEnd(std::string_view text, std::string_view spaces)
{
    // npos + 1 is 0: a text of spaces alone ends before its first one.
    return text.substr(0, text.find_last_not_of(spaces) + 1);
}

std::string ToLower(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower) {
        // std::tolower depends on the locale and mustn't be given a negative char.
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::string MakePrintable(std::string_view text)
{
    std::string printable(text);
    std::replace_if(
        printable.begin(), printable.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return printable;
}

}  // namespace base
