#pragma once

#include <string>

#include "model/Host.h"

namespace headless {

// Keeps the file that the document was opened from, so that a save has it whatever becomes of the
// file. Returns why that can't be done; the next save asks again.
std::string KeepBase(DocumentObject& document);

// Writes the document to `path`, an absolute one, which is its own from then on; it is no longer
// modified. The kind is told by the extension: .ai, .ait, .pdf or .eps. Returns one line that says
// why that can't be done, without the path; then neither the document nor any file has changed.
std::string SaveDocument(Host& host, DocumentObject& document, const std::string& path);

}  // namespace headless
