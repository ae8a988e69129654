#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "documents/bytes/ByteBuffer.h"
#include "documents/model/DocumentReader.h"

namespace documents {

// The illustration program's own document, unpacked from its container.
//
//  - A PDF holds it under /PieceInfo /Illustrator /Private of a page, cut into the streams
//    AIPrivateData1 to N.
//  - An EPS of version 9 and later holds it after %AI9_DataStream, as ASCII85 of zlib, or from
//    version 24 on after %AI24_DataStream, as ASCII85 of zstd. In the second case the document's
//    first lines are before the mark, not in the data.
//  - A PostScript file of a version up to 8 is the document.
//
// The first two may hold a header and then the document compressed with zlib
// (%AI12_CompressedData) or zstd (%AI24_ZStandard_Data). See docs/NATIVE.md.
struct NativePart {
    bool isThere = false;
    std::string_view text;  // the whole document; valid while this object and the source live
    std::string error;      // why a part that is there can't be unpacked, in a few words

    // Lines of the document that are before `text`, the mark %AI5_FileFormat among them, or empty.
    std::string_view head;

    // The whole file is the document. It looks like other PostScript until text is found in it.
    bool isBare = false;

    std::unique_ptr<ByteBuffer> bytes;  // owns `text` unless that is a view into the source
};

// Finds and unpacks the native part; isThere is false if the source has none. Throws LimitExceeded.
NativePart FindNativePart(const DocumentSource& source);

}  // namespace documents
