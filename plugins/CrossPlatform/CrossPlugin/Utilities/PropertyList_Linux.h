#pragma once

#include <map>
#include <string>

// Reads the top level's texts of an XML or binary property list, by key. False if the file can't be
// read or its root is no dictionary.
bool ReadPropertyList(const std::string& path, std::map<std::string, std::string>& texts);
