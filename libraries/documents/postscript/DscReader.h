#pragma once

#include <string_view>

#include "documents/model/DocumentReader.h"

namespace documents {

// Fills in what PostScript says of itself in its comments: kind, creator and the placed files
// (each %%IncludeFile, then what only %%DocumentFiles lists).
void DescribePostScript(std::string_view bytes, Document& document);

// Reads the fonts that the comments of a PostScript document list. The comments don't tell where
// they are used: the document gets one frame with one run of length 1 for each font. Fonts that the
// document only carries along (%%BeginFont) count if no comment lists any. Not this reader's if the
// source is no PostScript, or is of another program than the illustration program and has no
// comment that lists fonts or resources, be it an empty list.
ReadResult ReadDscComments(const DocumentSource& source, const Limits& limits, Document& document);

// The last resort for PostScript: a document without text.
ReadResult ReadWithoutFonts(const DocumentSource& source, const Limits& limits, Document& document);

}  // namespace documents
