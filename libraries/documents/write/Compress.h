#pragma once

#include <string>
#include <string_view>

namespace documents {

// Return `bytes` compressed. `level` is zlib's, 1 to 9. Throw std::runtime_error if the compression
// library fails.
std::string CompressZlib(std::string_view bytes, int level = 9);
std::string CompressZstandard(std::string_view bytes);

// Encodes `bytes` as lines that begin with a percent sign, with the end mark of ASCII85. There is
// no line end after the last line.
std::string EncodeAscii85(std::string_view bytes, std::string_view lineEnd = "\r");

}  // namespace documents
