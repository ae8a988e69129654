#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/model/Document.h"
#include "documents/model/FileKind.h"
#include "documents/model/Limits.h"

namespace documents {

class PdfFile;

// An opened file, the input of the readers. Before the first reader is called, the Document already
// has the kind, the creator, isTemplate and the placed files that the container itself names.
struct DocumentSource {
    Container container = Container::kNone;
    std::string_view postScript;  // the PostScript section; empty for a PDF
    PdfFile* pdf = nullptr;       // the opened PDF; null for PostScript
};

enum class ReadStatus {
    kNotMine,  // the file has nothing for this reader; the next one is tried
    kRead,     // the document is complete
    kFailed,   // the file is for this reader but can't be read; the next one is tried
};

struct ReadResult {
    ReadStatus status = ReadStatus::kNotMine;
    // With kFailed, the reason: a note of the document if another reader succeeds, else the error.
    std::string text;
};

// One way to read a document's text. `read` fills frames, stories, fonts, linkedFiles and notes;
// the caller discards them unless it returns kRead. An exception is treated like kFailed.
struct DocumentReader {
    const char* name;
    ReadResult (*read)(const DocumentSource& source, const Limits& limits, Document& document);
};

// Returns the readers in the order in which they are tried.
const std::vector<DocumentReader>& GetDocumentReaders();

}  // namespace documents
