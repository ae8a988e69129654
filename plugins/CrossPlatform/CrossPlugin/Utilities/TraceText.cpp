#include "TraceText.h"

#include <cstdio>
#include <cstring>

namespace {

void Format(char* text, const char* format, ...) __attribute__((format(printf, 2, 3)));

void Format(char* text, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    // The text is not used, so truncation and errors don't matter.
    (void)std::vsnprintf(text, kTraceTextSize, format, arguments);
    va_end(arguments);
}

// Formats and returns true if the first argument is a text that leaves no room for anything behind
// it. Menus and lists of fonts can be so long, and glibc takes up to 4 ns for each byte that it
// discards, so the rest of the text is not passed on.
bool FormatIfFirstTextFills(char* text, const char* format, va_list arguments)
{
    const char* const directive = std::strchr(format, '%');
    if (directive == nullptr || directive[1] != 's') return false;
    const auto before = static_cast<size_t>(directive - format);
    if (before >= kTraceTextSize) return false;
    va_list first;
    va_copy(first, arguments);
    const char* const value = va_arg(first, const char*);
    va_end(first);
    const size_t room = kTraceTextSize - before;
    if (value == nullptr || std::memchr(value, '\0', room) != nullptr) return false;
    Format(text, "%.*s%.*s", static_cast<int>(before), format, static_cast<int>(room), value);
    return true;
}

}  // namespace

void FormatTraceText(char* text, const char* format, va_list arguments)
{
    if (FormatIfFirstTextFills(text, format, arguments)) return;
    // As in Format.
    (void)std::vsnprintf(text, kTraceTextSize, format, arguments);
}
