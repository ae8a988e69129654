#pragma once

#include "documents/pdf/ContentLexer.h"

namespace documents {

// Moves the lexer, which has just returned BI, after the EI of the inline image. Computes the
// length of the data from the image's dictionary if possible (/L, or an image without a filter);
// otherwise the end is the first EI between white space that is followed by what looks like
// content. Without an ID, BI wasn't an image and the lexer isn't moved.
void SkipInlineImage(ContentLexer& lexer);

}  // namespace documents
