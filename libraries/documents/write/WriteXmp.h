#pragma once

#include <string>
#include <vector>

namespace documents {

// Returns a new XMP packet that names the writing program and the placed files.
std::string MakeXmpPacket(const std::string& creator, const std::vector<std::string>& placedFiles);

// Returns the packet with its manifest of placed files replaced; everything else in it remains. Of
// a damaged packet, the part before the damage remains. Returns an empty string if the packet
// has no rdf:RDF element to put a manifest into, or a document type, whose entities would be lost.
std::string ReplaceManifest(const std::string& packet, const std::vector<std::string>& placedFiles);

}  // namespace documents
