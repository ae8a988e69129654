#pragma once

#include <vector>

#include "documents/model/Document.h"

namespace documents {

// Lists the fonts in the resources of a PDF's pages and of the forms and patterns that they have,
// each name once, with whether its program is in the file. Of several fonts of one name, the one
// with the least embedded decides. Type 3 fonts and fonts without a name are left out. Throws
// LimitExceeded.
template <class File>
std::vector<PageFont> ReadPageFonts(File& file);

}  // namespace documents
