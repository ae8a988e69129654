#pragma once

#include <string>
#include <string_view>

// Small operations on strings of bytes. They know ASCII only: bytes from 0x80 on are never spaces
// or letters, so UTF-8 is safe.
namespace base {

constexpr std::string_view kSpaces = " \t\r\n";

bool StartsWith(std::string_view text, std::string_view start);
bool EndsWith(std::string_view text, std::string_view end);

// The part of `text` without the characters of `spaces` at its start and end: a view into `text`.
std::string_view Trim(std::string_view text, std::string_view spaces = kSpaces);

// The same for the end alone.
std::string_view TrimEnd(std::string_view text, std::string_view spaces = kSpaces);

// The text with A to Z in lower case.
std::string ToLower(std::string_view text);

// The text with each control character replaced by '?', for a line on a terminal.
std::string MakePrintable(std::string_view text);

}  // namespace base
