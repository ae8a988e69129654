#pragma once

#include <string>
#include <string_view>

#include "documents/model/Document.h"
#include "documents/model/Limits.h"

namespace documents {

struct OpenResult {
    bool ok = false;
    Document document;  // valid if ok
    std::string error;  // the reason in one line, without the path; empty if ok
};

// Reads the file at `path` (UTF-8).
//
// Detects the kind of the file by its first bytes, never by its name. Whatever the file holds, the
// call ends within the limits. Each of these has its own error text: missing, a folder, no
// permission, not a document, encrypted, cut off, too large. Never throws and never writes.
// [thread-safe]
OpenResult OpenDocument(const std::string& path, const Limits& limits = {});

// The same for a file whose bytes are in memory. The result doesn't refer to `bytes`.
OpenResult OpenDocumentBytes(std::string_view bytes, const Limits& limits = {});

}  // namespace documents
