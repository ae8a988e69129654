#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Document.h"
#include "FileKind.h"
#include "Limits.h"

namespace documents {

class PdfFile;

// An opened file as the readers see it. Kind, creator, template mark and the placed files that the
// container itself names are in the Document before the first reader is asked.
struct DocumentSource {
    Container container = Container::kNone;
    std::string_view postScript;  // the PostScript section; empty for a PDF
    PdfFile* pdf = nullptr;       // the opened PDF; null for PostScript
};

enum class ReadStatus {
    kNotMine,  // nothing of this reader's in the file: the next one is asked
    kRead,     // the document is filled in
    kFailed,   // it is this reader's, but can't be read: the next one is asked
};

struct ReadResult {
    ReadStatus status = ReadStatus::kNotMine;
    std::string text;  // the reason if failed: a note if another reader answers, else the error
};

// One way to get at a document's text. `read` fills frames, stories, fonts, linkedFiles and notes;
// what it left in them is dropped unless it answers kRead. It may throw: that counts as failed.
struct DocumentReader {
    const char* name;
    ReadResult (*read)(const DocumentSource& source, const Limits& limits, Document& document);
};

// The readers in the order in which they are asked.
const std::vector<DocumentReader>& GetDocumentReaders();

}  // namespace documents
