#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ByteBuffer.h"
#include "DocumentReader.h"

namespace documents {

// The illustration program's own document, taken out of what it is packed in.
//
//  - a PDF holds it under /PieceInfo /Illustrator /Private of a page, cut into the streams
//    AIPrivateData1 to N;
//  - an EPS of version 9 and later behind %AI9_DataStream, as ASCII85 of zlib;
//  - a PostScript file of versions up to 8 is the document.
//
// What comes out may in turn begin with a header, behind which the document stands compressed with
// zlib (%AI12_CompressedData) or zstd (%AI24_ZStandard_Data).
struct NativePart {
    bool isThere = false;
    std::string_view text;  // the whole document; valid while this lives and the source does
    std::string error;      // it is there, but can't be unpacked; a few words

    // The whole file is the document: nobody can tell it from other PostScript until text is found.
    bool isBare = false;

    std::unique_ptr<ByteBuffer> bytes;  // what `text` is a view into, if not the source
};

// Throws LimitExceeded.
NativePart FindNativePart(const DocumentSource& source);

}  // namespace documents
