#pragma once

#include <string>
#include <string_view>

#include "Document.h"
#include "Limits.h"

namespace documents {

struct OpenResult {
    bool ok = false;
    Document document;  // meaningful if ok
    std::string error;  // one line that names the reason, without the path; empty if ok
};

// Reads the file at `path` (UTF-8 bytes, as the system takes them). Tells the kind by the first
// bytes and never by the name. Never throws and never writes; whatever the file holds, the result
// comes within the limits: missing, a folder, no permission, not a document, encrypted, cut off and
// too large are each an error text of their own. Safe to call from several threads.
OpenResult OpenDocument(const std::string& path, const Limits& limits = {});

// The same for a file whose bytes are in memory already.
OpenResult OpenDocumentBytes(std::string_view bytes, const Limits& limits = {});

}  // namespace documents
