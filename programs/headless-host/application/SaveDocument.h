#pragma once

#include <string>

#include "model/Host.h"

namespace headless {

// Reads the bytes of the file that the document was opened from into the document, unless it has
// them or was opened from no file. A later save needs them, even if the file is changed or deleted
// in the meantime.
//
// Returns "", or one line that says what is wrong; the next call tries again.
std::string KeepBase(DocumentObject& document);

// Writes the document to `path`, which becomes its own path, and marks it as not modified.
//
// path   absolute; its extension determines the format: .ai, .ait, .pdf or .eps
// Returns "", or one line without the path that says what is wrong; then the document and all files
// are unchanged.
std::string SaveDocument(Host& host, DocumentObject& document, const std::string& path);

}  // namespace headless
