#pragma once

#include <cstddef>
#include <string>

#include "docfonts/report/DocumentReport.h"

namespace docfonts {

struct ReadingOptions {
    double seconds = 30;     // for a document with all that it places
    size_t helperBytes = 0;  // memory for Ghostscript
    bool readsPlacedDocuments = false;
};

// Reads a document, and looks for the files that it places. The states of the fonts remain unknown:
// FontSearch.h. Whatever the files hold, returns a report: a document that cannot be read has an
// error. Throws std::bad_alloc if the document needs more memory than this process has.
//
// A placed document that the time isn't enough for has an error; so does one that cannot be read.
DocumentReport ReadDocument(const std::string& path, const ReadingOptions& options);

}  // namespace docfonts
