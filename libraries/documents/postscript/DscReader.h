#pragma once

#include <string_view>

#include "documents/model/DocumentReader.h"

namespace documents {

// Sets the document's kind, creator and placed files from the comments of a PostScript file. The
// placed files are those of %%IncludeFile, then those that only %%DocumentFiles or a list of needed
// resources names. Files that the document contains as resources aren't placed files.
void DescribePostScript(std::string_view bytes, Document& document);

// Reads the fonts that the comments of a PostScript file list. Comments don't say where a font is
// used, so the document gets one frame with one run of length 1 per font. Comments inside embedded
// fonts and resources aren't the document's.
//
// Returns kNotMine if the source isn't PostScript, or if no comment lists fonts or resources.
// Returns kFailed if the lists name no font, or only fonts that the file contains: it may use
// others.
ReadResult ReadDscComments(const DocumentSource& source, const Limits& limits, Document& document);

// Fallback for PostScript that nothing else can read: the fonts that it contains, if any.
ReadResult ReadSuppliedFonts(const DocumentSource& source, const Limits& limits,
                             Document& document);

// Whether any comment of a PostScript file names a font.
bool HasFontComments(std::string_view postScript);

}  // namespace documents
