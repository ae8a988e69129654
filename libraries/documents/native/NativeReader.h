#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the illustration program's own document, versions 7 to 25, in PDF, EPS and PostScript. Only
// this part of a file has the text frames, stories and runs as the user made them, and the names of
// fonts that were missing at the last save. docs/NATIVE.md describes the format.
//
// Frames are in paint order. Ignores stories without a frame and the return that ends each story.
// Text of older versions that was never converted becomes frames with their own stories. Text and
// placed files that this host has added since come last (see NativeAdditions.h).
//
// Returns kNotMine if the source has no native part, or is a PostScript file without text objects
// whose comments name a font.
ReadResult ReadNative(const DocumentSource& source, const Limits& limits, Document& document);

}  // namespace documents
