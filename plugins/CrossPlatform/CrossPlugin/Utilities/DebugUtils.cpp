#include "DebugUtils.h"

#include "TraceText.h"

void OutputIndentedAndFormattedString(int /*indentChange*/, const char* format, ...)
{
    char text[kTraceTextSize] = {};
    va_list arguments;
    va_start(arguments, format);
    FormatTraceText(text, format, arguments);
    va_end(arguments);
    // Prevents the compiler from removing the text, which a debugger can read here.
    asm volatile("" : : "r"(text) : "memory");
}
