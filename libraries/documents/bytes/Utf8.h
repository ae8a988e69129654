#pragma once

#include <string>
#include <string_view>

namespace documents {

// Returns the text with each byte that isn't part of valid UTF-8 replaced by U+FFFD. Overlong
// forms, surrogates and values above U+10FFFF are invalid.
std::string ToValidUtf8(std::string_view bytes);

// Returns the number of characters of a text in UTF-8: its bytes without continuation bytes.
size_t CountCharacters(std::string_view text);

// Converts big-endian UTF-16 to UTF-8. Unpaired surrogates and a single last byte become U+FFFD.
std::string FromUtf16(std::string_view bytes);

// Prepares a text for a one-line message: valid UTF-8, control characters replaced by spaces, cut
// off after 200 bytes.
std::string ToMessageText(std::string_view bytes);

}  // namespace documents
