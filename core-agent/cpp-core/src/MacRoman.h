#pragma once

#include <string>

// Converts a zero-terminated MacRoman text to UTF-8. Doesn't fail: every byte is a character.
// [any thread]
std::string DecodeMacRoman(const char* text);
