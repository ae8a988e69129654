#pragma once

#include <qpdf/QPDF.hh>
#include <string>
#include <string_view>
#include <vector>

#include "documents/model/Document.h"

namespace documents {

// What this host adds to a document that has a native part. The host can't write that part, so it
// keeps it byte for byte and stores the additions beside it: in a PDF as its own private data of
// the page (/PieceInfo /HeadlessHost), in PostScript as comments of its own. The native reader
// appends them to what the native part holds. They are lost when the illustration program saves the
// document. A PDF without a native part has only the placed files, on its first page.
struct NativeAdditions {
    std::vector<TextRun> texts;      // each becomes a frame with its own story
    std::vector<std::string> files;  // placed files

    bool IsEmpty() const { return texts.empty() && files.empty(); }
};

// Returns the first page that has a native part, or null.
QPDFObjectHandle FindNativePage(const std::vector<QPDFObjectHandle>& pages);

// Read and append the additions of a PDF, which `page` holds. ReadAdditions returns none if `page`
// is null. AppendAdditions keeps the existing ones.
NativeAdditions ReadAdditions(QPDFObjectHandle page);
void AppendAdditions(const NativeAdditions& additions, QPDF& pdf, QPDFObjectHandle page);

// Return all additions in a PostScript file, and additions as comment lines to insert into one.
NativeAdditions ReadAdditions(std::string_view postScript);
std::string WriteAdditions(const NativeAdditions& additions);

}  // namespace documents
