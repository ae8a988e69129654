#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_document;
}

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

// Parses an XMP packet in UTF-8 into `document` as far as it is well-formed: after an error the
// tree has everything before it. Reads zero bytes as spaces. Of an extremely large packet, parses
// only the start, whose tree takes about 256 MiB.
//
// options  pugi::parse_* flags
//
// A hostile packet can nest elements without a limit: traverse the tree, but don't recurse.
void LoadXmpTree(std::string_view packet, unsigned options, pugi::xml_document& document);

}  // namespace documents
