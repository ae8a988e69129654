#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text in UTF-8. Overlong forms, surrogates and values beyond U+10FFFF aren't valid.
namespace base {

bool IsValidUtf8(std::string_view bytes);

// The text with each byte that isn't part of a valid character replaced by U+FFFD: one for each
// byte, so that damaged names of different lengths remain different.
std::string ToValidUtf8(std::string_view bytes);

// The number of characters of a valid text.
size_t CountCharacters(std::string_view text);

// Appends a character; U+FFFD for a surrogate or a value beyond U+10FFFF.
void AppendCharacter(char32_t character, std::string& text);

// Big-endian UTF-16 as UTF-8. A surrogate without its other half becomes U+FFFD, and so does a
// single byte at the end.
std::string FromUtf16(std::string_view bytes);

// The text for a message of one line: valid UTF-8, with spaces in place of control characters, of
// the first 200 bytes only.
std::string ToMessageText(std::string_view bytes);

}  // namespace base
