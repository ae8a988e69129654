#pragma once

#include <cstdint>

// Convert values for the formats of the trace (DebugUtils.h). [any thread]

// Returns the low 32 bits of a pointer, for "%08x".
template <class T>
unsigned int TracePointer(T* pointer)
{
    return static_cast<unsigned int>(reinterpret_cast<uintptr_t>(pointer));
}

// Returns the text, or "(null)" for null, for "%s". The caller's text must outlive the result.
inline const char* TraceText(const char* text) { return text != nullptr ? text : "(null)"; }
