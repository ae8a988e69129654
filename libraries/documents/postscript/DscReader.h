#pragma once

#include <string_view>

#include "documents/model/DocumentReader.h"

namespace documents {

// Sets the document's kind, creator and placed files from the comments of a PostScript file. The
// placed files are those of %%IncludeFile, then those that only %%DocumentFiles or a list of needed
// resources names. Files that the document contains as resources aren't placed files.
void DescribePostScript(std::string_view bytes, Document& document);

// Reads the fonts that the comments of a PostScript file list. Comments don't say where a font is
// used, so the document gets one frame with one run of length 1 per font. Embedded fonts
// (%%BeginFont) are used only if no comment lists fonts.
//
// Returns kNotMine if the source isn't PostScript, or if another program than the illustration
// program wrote it and no comment lists fonts or resources. An empty list is a list.
ReadResult ReadDscComments(const DocumentSource& source, const Limits& limits, Document& document);

// Fallback for PostScript: reads a document without text.
ReadResult ReadWithoutFonts(const DocumentSource& source, const Limits& limits, Document& document);

}  // namespace documents
