#pragma once

#include <string>

namespace documents {

// Returns `name` without the prefix of an embedded subset, six capital letters and a plus sign:
// "ABCDEF+Name" becomes "Name". Any other name is returned unchanged.
std::string StripSubsetPrefix(const std::string& name);

}  // namespace documents
