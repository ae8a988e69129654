#pragma once

#include <cstdint>

// How values are passed to the trace's formats.

// A pointer for "%08x": its low 32 bits.
template <class T>
unsigned int TracePointer(T* pointer)
{
    return static_cast<unsigned int>(reinterpret_cast<uintptr_t>(pointer));
}

// A text for "%s" that may be null.
inline const char* TraceText(const char* text) { return text != nullptr ? text : "(null)"; }
