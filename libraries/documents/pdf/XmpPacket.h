#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace documents {

// The properties of an XMP packet that the readers use.
struct XmpFacts {
    std::string creatorTool;                 // xmp:CreatorTool
    std::vector<std::string> manifestFiles;  // each stRef:filePath of xmpMM:Manifest, in order
};

// Scans an XMP packet in UTF-8. Accepts properties as elements and as attributes, with any prefix,
// and resolves entities. Skips what isn't well-formed: never fails.
XmpFacts ReadXmpPacket(std::string_view packet);

}  // namespace documents
