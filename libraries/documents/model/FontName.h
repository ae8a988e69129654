#pragma once

#include <cstddef>
#include <functional>
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

// Some programs write the name of the encoding behind that of the font: "Name-Identity-H" or
// "Name-Identity-V". The readers hand out such a name as the document has it, since they don't know
// which fonts exist. A program that looks for the font calls ChooseFontName.

// Whether the name ends in -Identity-H or -Identity-V.
bool HasEncodingSuffix(std::string_view name);

// Returns the name of the font that a document calls `name`: the name without -Identity-H or
// -Identity-V if no font of the whole name exists and one of the shorter name does, else `name`.
//
// exists  called only for a name with such a suffix; returns whether there is a font of this name
std::string ChooseFontName(const std::string& name,
                           const std::function<bool(const std::string& name)>& exists);

}  // namespace documents
