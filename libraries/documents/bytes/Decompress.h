#pragma once

#include <string>
#include <string_view>

#include "documents/bytes/ByteBuffer.h"

namespace documents {

// Decompress the zlib stream or zstd frame at the start of `packed` and append the result to
// `output`. Ignore any bytes after it. Return "", or the reason in a few words if the data can't be
// decompressed to its end; what could be decompressed has been appended then. Throw LimitExceeded.
std::string InflateZlib(std::string_view packed, ByteBuffer& output);
std::string DecompressZstandard(std::string_view packed, ByteBuffer& output);

// Does what InflateZlib does if the stream is whole, sound, of moderate size and within the
// ReadBudget. Else returns false and leaves `output` and the budget unchanged. Some times as fast.
bool InflateAtOnce(std::string_view packed, ByteBuffer& output);

// Decodes ASCII85 up to the end mark "~>" or the end of the text and appends the bytes to `output`.
// Ignores white space and a percent sign at the start of each line. Returns false at an invalid
// character; what comes before it has been appended then.
bool DecodeAscii85(std::string_view text, ByteBuffer& output);

}  // namespace documents
