#pragma once

#include <pugixml.hpp>
#include <string_view>

namespace documents {

// Parses an XMP packet in UTF-8 into `document` as far as it is well-formed: after an error the
// tree has everything in front of it. Takes zero bytes for spaces. Of an extremely large packet,
// parses as much as takes about 256 MiB.
//
// options  pugi::parse_* flags
//
// Elements may be nested as deeply as a hostile packet likes: traverse the tree, but don't recurse.
void LoadXmpTree(std::string_view packet, unsigned options, pugi::xml_document& document);

}  // namespace documents
