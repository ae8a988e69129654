#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace documents {

// The properties that are read from an XMP packet.
struct XmpFacts {
    std::string creatorTool;                 // xmp:CreatorTool
    std::vector<std::string> manifestFiles;  // each stRef:filePath of xmpMM:Manifest, in order
};

// Reads an XMP packet in UTF-8. A property may be an element or an attribute, with any prefix.
// Never fails: a packet that is damaged, cut off or extremely large is read up to that point, and
// an entity that XML doesn't define remains in the text as it is.
XmpFacts ReadXmpPacket(std::string_view packet);

}  // namespace documents
