#pragma once

#include <string>

#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// Looks for a file that a document places: where the document says (a relative path begins at the
// document's folder), then by its name beside the document. Folders, pipes and devices are no
// files.
//
// document   the document's path
// path       as in the document; can be of another system, with backslashes or colons
PlacedFile FindPlacedFile(const std::string& document, const std::string& path);

// Whether the first bytes of a regular file are those of a document.
bool IsDocumentFile(const std::string& path);

}  // namespace docfonts
