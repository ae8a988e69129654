#pragma once

// True for well-formed UTF-8: no overlong form, no surrogate, nothing above U+10FFFF.
bool IsValidUtf8(const char* text);
