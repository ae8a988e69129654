#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace documents {

// What is taken from an XMP packet.
struct XmpFacts {
    std::string creatorTool;                 // xmp:CreatorTool
    std::vector<std::string> manifestFiles;  // each stRef:filePath of xmpMM:Manifest, in order
};

// Scans an XMP packet in UTF-8. Properties may be elements or attributes and have any prefix;
// entities are resolved. What isn't well-formed is passed over: never fails.
XmpFacts ReadXmpPacket(std::string_view packet);

}  // namespace documents
