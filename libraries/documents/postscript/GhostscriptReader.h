#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the text of a PostScript file whose comments don't list its fonts: converts it to a PDF
// with Ghostscript and reads that. Returns kFailed with the reason if Ghostscript isn't installed
// or can't convert it, and kNotMine if the source isn't PostScript or helperSeconds is 0.
ReadResult ReadThroughGhostscript(const DocumentSource& source, const Limits& limits,
                                  Document& document);

}  // namespace documents
