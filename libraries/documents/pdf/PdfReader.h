#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the text that the pages of a PDF show; see ContentWalker.h for what counts and what a frame
// is here. Not this reader's if the source is no PDF.
ReadResult ReadPdfContent(const DocumentSource& source, const Limits& limits, Document& document);

}  // namespace documents
