#pragma once

#include <string>
#include <string_view>

#include "ByteBuffer.h"

namespace documents {

// Both append what `packed` begins with, decompressed, to `output`, and pass over what stands
// behind it. The result is empty, or why it can't be decompressed to its end, in a few words; what
// came out before that stays in `output`. They throw LimitExceeded beyond the ReadBudget.
std::string InflateZlib(std::string_view packed, ByteBuffer& output);
std::string DecompressZstandard(std::string_view packed, ByteBuffer& output);

// The bytes that a text in ASCII85 stands for, up to its end mark "~>" or the end of the text.
// Blanks are passed over, and so is a percent sign at the start of each line. Appends to `output`;
// false if a character is out of place, which ends the decoding there.
bool DecodeAscii85(std::string_view text, ByteBuffer& output);

}  // namespace documents
