#pragma once

#include <cstdarg>
#include <cstddef>

// The size of a trace's text with its terminating zero. Longer texts are truncated.
constexpr size_t kTraceTextSize = 65536;

// Formats a text of the trace (DebugUtils.h) by vsnprintf. [any thread]
//
// text   has kTraceTextSize bytes
void FormatTraceText(char* text, const char* format, va_list arguments);
