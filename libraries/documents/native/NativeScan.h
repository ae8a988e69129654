#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "documents/bytes/ByteBuffer.h"
#include "documents/model/Document.h"

namespace documents {

// A text object of a native document.
struct NativeText {
    enum class Type {
        kFrame,   // a frame of a story of the text tree
        kObject,  // a text object with its own text, as versions up to 10 write it
        kPdf,     // text of an older version that was never converted: a PDF with one page
    };
    Type type = Type::kObject;
    size_t story = 0;                 // kFrame: index into the text tree's stories
    size_t frame = 0;                 // kFrame: index of the frame in its story
    std::vector<TextRun> runs;        // kObject
    std::unique_ptr<ByteBuffer> pdf;  // kPdf
};

// The result of one pass over the lines of a native document.
struct NativeContents {
    bool isNative = false;  // the document has the mark %AI5_FileFormat
    bool hasTree = false;
    ByteBuffer tree;                       // the text tree, decoded
    std::vector<NativeText> texts;         // in paint order
    std::vector<std::string> linkedFiles;  // placed files in order, repeats included
    bool linksAreListed = false;           // linkedFiles is from comments: no object names a file
    std::string error;                     // why the text can't be read, in a few words
};

// Scans the lines of a native document. Styled art stores each object twice: the user's own (lines
// prefixed "%_") and its rendered appearance. Each object is reported once. Throws LimitExceeded.
NativeContents ScanNative(std::string_view text);

}  // namespace documents
