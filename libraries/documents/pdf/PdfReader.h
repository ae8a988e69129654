#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the text that the pages of a PDF show; ContentWalker.h says which text, and what a frame
// is. Returns kNotMine if the source isn't a PDF.
ReadResult ReadPdfContent(const DocumentSource& source, const Limits& limits, Document& document);

}  // namespace documents
