#pragma once

#include <string>

// Returns true if all of the text is well-formed UTF-8. macOS can't make string objects of other
// text, so paths that aren't UTF-8 fail here too. [any thread]
bool IsUTF8(const std::string& text);
