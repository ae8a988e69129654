#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Lines of a text that end in CR, LF or CR LF, whichever each line has.
namespace base {

// Returns the position of the first CR or LF, or the size of `text` if there is none.
size_t FindLineEnd(std::string_view text);

// Removes the first line from `rest` and returns it without its end. `rest` is empty after the last
// line; callers loop until then.
std::string_view TakeLine(std::string_view& rest);

// All lines without their ends.
std::vector<std::string> SplitLines(std::string_view text);

// The reverse: each line ends in LF.
std::string JoinLines(const std::vector<std::string>& lines);

// The position of the first line that begins with `start`, or npos.
size_t FindLine(std::string_view text, std::string_view start);

// The position of the last line that begins with `start`, or npos.
size_t FindLastLine(std::string_view text, std::string_view start);

}  // namespace base
