#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the document that the illustration program itself wrote, versions 7 to 25, in PDF, EPS and
// PostScript. It alone has the text frames, stories and runs as the user made them, and the fonts
// that were asked for where others stood in for them.
//
// Frames stand in paint order. A story without a frame doesn't count, and neither does the return
// that ends each story. Text of older versions that was never converted becomes frames with stories
// of their own. Text and placed files that this host has added since stand behind all others (see
// NativeAdditions.h).
//
// Not this reader's if the source has no such part, or is a PostScript file without text objects.
ReadResult ReadNative(const DocumentSource& source, const Limits& limits, Document& document);

}  // namespace documents
