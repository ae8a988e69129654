#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

// PostScript's limit for a name. Whatever is longer isn't the name of a font: the readers cut it
// while reading, so that a file can't fill the memory with it, and DocumentBuilder leaves it out.
constexpr size_t kMostFontNameBytes = 127;

bool IsFontName(std::string_view name);

// Returns `name`, or so much of a name that is too long that it remains too long.
std::string_view CutFontName(std::string_view name);

// Returns `name` without the prefix of an embedded subset, six capital letters and a plus sign:
// "ABCDEF+Name" becomes "Name". Any other name is returned unchanged, but cut.
std::string StripSubsetPrefix(std::string_view name);

}  // namespace documents
