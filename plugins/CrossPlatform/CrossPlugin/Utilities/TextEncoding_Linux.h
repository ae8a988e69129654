#pragma once

#include <string>

// Whether the text can be made into a string object elsewhere: it is UTF-8 to its end.
bool IsUTF8(const std::string& text);
