#pragma once

#include <string>

// UTF-8 of a MacRoman text. Every byte has a character.
std::string DecodeMacRoman(const char* text);
