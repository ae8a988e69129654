#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Texts of documents, which can have any bytes, as text of a page of HTML.
namespace docfonts {

// The characters as Unicode, of which a page can show each: control characters, which HTML forbids,
// and those that change the direction of the text around them are U+FFFD, line ends are spaces. The
// first `most` characters; longer texts end in "…".
std::u32string ToShownText(std::string_view bytes, size_t most);

// Appends the characters in UTF-8, escaped for text and for attributes in quotes.
void AppendEscaped(std::u32string_view text, std::string& html);

// The same for a name or path, of at most kMostNameCharacters.
void AppendName(std::string_view bytes, std::string& html);

constexpr size_t kMostNameCharacters = 4096;

// "12,345".
std::string FormatNumber(uint64_t number);

std::string EncodeBase64(std::string_view bytes);

}  // namespace docfonts
