#pragma once

#include <map>
#include <string>

// Adds the strings at the top level of a property list to `texts`, by key. Skips other values.
//
// path   an XML or binary property list, in UTF-8
// Returns false, with `texts` unchanged, if the file can't be read or its root is not a dictionary.
// [any thread]
bool ReadPropertyList(const std::string& path, std::map<std::string, std::string>& texts);
