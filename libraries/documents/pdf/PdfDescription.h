#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <string>

#include "documents/model/Document.h"
#include "documents/pdf/PdfFile.h"

namespace documents {

// Sets the document's kind, creator and placed files from a PDF's metadata. The placed files are
// those of the XMP packet (xmpMM:Manifest), in order with repeats. They are the document's only if
// the PDF has a native part, which the caller checks.
void DescribePdf(PdfFile& file, Document& document);

// Returns the file that an XObject's dictionary refers to (OPI, a reference XObject or external
// data), or "".
std::string GetExternalFile(QPDFObjectHandle dictionary);

}  // namespace documents
