#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the text of a PostScript document whose comments don't tell of fonts: Ghostscript draws it
// as a PDF, if it is installed. Fails with the reason if it can't.
ReadResult ReadThroughGhostscript(const DocumentSource& source, const Limits& limits,
                                  Document& document);

}  // namespace documents
