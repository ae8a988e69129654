#include "DebugUtils.h"

#include <cstdarg>
#include <cstdio>

void OutputIndentedAndFormattedString(int /*indentChange*/, const char* format, ...)
{
    char text[65536] = {};
    va_list arguments;
    va_start(arguments, format);
    // The text is not used, so truncation and errors don't matter.
    (void)std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    // Prevents the compiler from removing the text, which a debugger can read here.
    asm volatile("" : : "r"(text) : "memory");
}
