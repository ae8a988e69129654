#pragma once

#include <cstddef>
#include <string>

// Strings in buffers of the caller.
namespace plugincore {

// Returns the string in a buffer of `size` bytes. It ends at the first zero byte or at the end of
// the buffer.
std::string ReadBuffer(const char* buffer, size_t size);

// Copies the text and a zero byte into a buffer of `size` bytes. If they don't fit, writes "" and
// throws Failure with kIndexOutOfRange.
void WriteBuffer(const std::string& text, char* buffer, size_t size);

}  // namespace plugincore
