#pragma once

#include <string>
#include <string_view>

// Small operations on strings of bytes. They know ASCII only: bytes from 0x80 on are never spaces
// or letters, so UTF-8 is safe.
namespace base {

constexpr std::string_view kSpaces = " \t\r\n";

// Inline, so that a comparison with a constant is one of its bytes, without a call.
inline bool StartsWith(std::string_view text, std::string_view start)
{
    return text.size() >= start.size() && text.compare(0, start.size(), start) == 0;
}
inline bool EndsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// The part of `text` without the characters of `spaces` at its start and end: a view into `text`.
std::string_view Trim(std::string_view text, std::string_view spaces = kSpaces);

// The same for the end alone.
std::string_view TrimEnd(std::string_view text, std::string_view spaces = kSpaces);

// The text with A to Z in lower case.
std::string ToLower(std::string_view text);

// The text with each control character replaced by '?', for a line on a terminal.
std::string MakePrintable(std::string_view text);

}  // namespace base
