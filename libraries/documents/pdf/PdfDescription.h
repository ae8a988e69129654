#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <string>

#include "documents/model/Document.h"
#include "documents/pdf/PdfFile.h"

namespace documents {

// Fills in what a PDF says of itself besides its text: kind, creator, and the placed files that its
// XMP packet lists (xmpMM:Manifest), in order with repeats.
void DescribePdf(PdfFile& file, Document& document);

// The file that an XObject's dictionary refers to (OPI, a reference XObject, or data kept outside),
// empty if it doesn't.
std::string GetExternalFile(QPDFObjectHandle dictionary);

}  // namespace documents
