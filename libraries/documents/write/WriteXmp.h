#pragma once

#include <string>
#include <vector>

namespace documents {

// A new XMP packet that names the writing program and the placed files.
std::string MakeXmpPacket(const std::string& creator, const std::vector<std::string>& placedFiles);

// The packet with its manifest of placed files replaced; everything else stays. An empty text if
// the packet isn't one that this can be done with.
std::string ReplaceManifest(const std::string& packet, const std::vector<std::string>& placedFiles);

}  // namespace documents
