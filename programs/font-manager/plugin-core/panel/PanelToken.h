#pragma once

#include <filesystem>
#include <string>

namespace plugincore {

// Returns the token that a panel has to present: 64 hexadecimal digits. Reads it from the file, or
// writes a new one there if the file is missing, damaged or accessible for other users. Throws
// Failure.
std::string LoadOrMakePanelToken(const std::filesystem::path& file);

// Compares in a time that doesn't depend on the position of the first difference, so that a client
// can't find the token by measuring.
bool IsSameToken(const std::string& left, const std::string& right);

}  // namespace plugincore
