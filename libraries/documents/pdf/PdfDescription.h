#pragma once

#include <string>

#include "documents/model/Document.h"

namespace documents {

// Sets the document's kind, creator and placed files from a PDF's metadata. The placed files are
// those of the XMP packet (xmpMM:Manifest), in order with repeats. They are the document's only if
// the PDF has a native part, which the caller checks.
template <class File>
void DescribePdf(File& file, Document& document);

// Returns the file that an XObject's dictionary refers to (OPI, a reference XObject or external
// data), or "".
template <class Object>
std::string GetExternalFile(Object dictionary);

}  // namespace documents
