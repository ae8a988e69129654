#pragma once

#include <string>
#include <string_view>

namespace documents {

// The same text with each byte that is no part of valid UTF-8 replaced by U+FFFD. Overlong forms,
// surrogates and what lies beyond U+10FFFF aren't valid.
std::string ToValidUtf8(std::string_view bytes);

// How many characters a text in UTF-8 has: its bytes but for those that go on with one.
size_t CountCharacters(std::string_view text);

// Big-endian UTF-16 as UTF-8; halves of pairs that stand alone become U+FFFD, and so does a last
// single byte.
std::string FromUtf16(std::string_view bytes);

// The text as part of a one-line message: valid UTF-8, control characters replaced by blanks, cut
// off behind 200 bytes.
std::string ToMessageText(std::string_view bytes);

}  // namespace documents
