#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace documents {

// Returns the names that the header of a native document lists in %%DocumentFonts, in order. They
// may repeat or be too long for a font.
//
// The header ends with %%EndComments or with the first line that isn't a comment; of a list at the
// end of the document, "(atend)", the one after the last %%Trailer is read. %%DocumentNeededFonts
// and %%DocumentSuppliedFonts say which of the fonts the printable part of the file has: the
// illustration program itself needs all of them. It has its own invisible font, which is left out.
// Throws LimitExceeded.
std::vector<std::string> ReadFontList(std::string_view text);

}  // namespace documents
