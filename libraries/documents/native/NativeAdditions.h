#pragma once

#include <qpdf/QPDF.hh>
#include <string>
#include <string_view>
#include <vector>

#include "documents/model/Document.h"

namespace documents {

// What this host adds to a document that has a native part. That part stays byte for byte as the
// illustration program wrote it; what was added stands beside it, for the native reader to put
// behind all the rest: in a PDF as the host's own private data of the page (/PieceInfo
// /HeadlessHost), in PostScript as comments of its own. A document that the illustration program
// saves again no longer has it.
struct NativeAdditions {
    std::vector<TextRun> texts;  // each a frame with a story of its own
    std::vector<std::string> files;

    bool IsEmpty() const { return texts.empty() && files.empty(); }
};

// The first of the pages that has a native part; null if none has.
QPDFObjectHandle FindNativePage(const std::vector<QPDFObjectHandle>& pages);

NativeAdditions ReadAdditions(QPDFObjectHandle page);
void AppendAdditions(const NativeAdditions& additions, QPDF& pdf, QPDFObjectHandle page);

NativeAdditions ReadAdditions(std::string_view postScript);
std::string WriteAdditions(const NativeAdditions& additions);

}  // namespace documents
