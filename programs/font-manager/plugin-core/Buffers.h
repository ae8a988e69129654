#pragma once

#include <cstddef>
#include <string>

// Texts in buffers of the caller.
namespace plugincore {

// The text in a buffer of `size` bytes, which need not be terminated.
std::string ReadBuffer(const char* buffer, size_t size);

// Puts the text and its terminating zero into the buffer. If it doesn't fit, the buffer becomes the
// empty text and Failure with kIndexOutOfRange is thrown. Nothing is written beyond `size` bytes.
void WriteBuffer(const std::string& text, char* buffer, size_t size);

}  // namespace plugincore
