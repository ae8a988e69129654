#pragma once

// Returns true if the zero-terminated text is well-formed UTF-8: no overlong forms, no surrogates,
// nothing above U+10FFFF. [any thread]
bool IsValidUtf8(const char* text);
