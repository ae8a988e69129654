#pragma once

#include "documents/pdf/ContentLexer.h"

namespace documents {

// Takes the lexer, which has just given BI, behind the image's EI. The length of the data is taken
// from the image's dictionary where that tells it (/L, or an image without a filter); else the end
// is the first EI between blanks with what looks like content behind it. Content in which no ID
// follows is left where it is: then BI was none.
void SkipInlineImage(ContentLexer& lexer);

}  // namespace documents
