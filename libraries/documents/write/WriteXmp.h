#pragma once

#include <string>
#include <vector>

namespace documents {

// Returns a new XMP packet with the writing program and the placed files.
std::string MakeXmpPacket(const std::string& creator, const std::vector<std::string>& placedFiles);

// Returns the packet with its manifest of placed files replaced and everything else unchanged, or
// "" if the packet has no end of an RDF element.
std::string ReplaceManifest(const std::string& packet, const std::vector<std::string>& placedFiles);

}  // namespace documents
