#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ByteBuffer.h"
#include "Document.h"

namespace documents {

// A text object of a native document, where it stands in paint order.
struct NativeText {
    enum class Type {
        kFrame,   // shows a frame of a story of the text tree
        kObject,  // holds its text itself, as versions up to 10 write it
        kPdf,     // text of an older version that was never converted: a PDF with one page
    };
    Type type = Type::kObject;
    size_t story = 0;           // of a frame
    size_t frame = 0;           // of a frame: its index in the story
    std::vector<TextRun> runs;  // of an object
    std::unique_ptr<ByteBuffer> pdf;
};

// What one pass over the lines of a native document finds.
struct NativeContents {
    bool isNative = false;  // it says so itself
    bool hasTree = false;
    ByteBuffer tree;  // the text tree, decoded
    std::vector<NativeText> texts;
    std::vector<std::string> linkedFiles;  // placed files in order, repeats included
    bool linksAreListed = false;           // no object tells of them: they are from comments
    std::string error;                     // why the text can't be read; a few words
};

// Objects in the appearance of styled art stand there twice: as the user's own, with "%_" in front
// of each line, and as what they look like. Each counts once. Throws LimitExceeded.
NativeContents ScanNative(std::string_view text);

}  // namespace documents
