#pragma once

#include "documents/model/DocumentReader.h"

namespace documents {

// Reads the text that the pages of a PDF show; ContentWalker.h says which text, and what a frame
// is. Returns kNotMine if the source isn't a PDF.
ReadResult ReadPdfContent(const DocumentSource& source, const Limits& limits, Document& document);

// Does the whole work of OpenDocument for a PDF without a native part, without faults and without
// rare features (quick/QuickFile.h): the description, the text of the pages and the details. Throws
// Irregular for any other file, and then the document is to be discarded. Throws LimitExceeded.
void ReadPdfQuickly(std::string_view bytes, const Limits& limits, Document& document);

}  // namespace documents
