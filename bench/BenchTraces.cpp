#include "BenchTraces.h"

#include "DebugUtils.h"
#include "TraceText.h"

namespace {

size_t sTraces = 0;
bool sHasTraces = true;

}  // namespace

// As in DebugUtils.cpp. A definition in the program has precedence over that of the library.
void OutputIndentedAndFormattedString(int /*indentChange*/, const char* format, ...)
{
    ++sTraces;
    if (!sHasTraces) return;
    char text[kTraceTextSize] = {};
    va_list arguments;
    va_start(arguments, format);
    FormatTraceText(text, format, arguments);
    va_end(arguments);
    asm volatile("" : : "r"(text) : "memory");
}

namespace bench_traces {

size_t GetCount() { return sTraces; }

void SetEnabled(bool isEnabled) { sHasTraces = isEnabled; }

}  // namespace bench_traces
