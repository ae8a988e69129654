#pragma once

#include <filesystem>
#include <string>

namespace plugincore {

// The token that a panel has to present, 64 hexadecimal digits: the one in the file, or a new one
// that is written there if there is none that only this user can have read. Throws Failure.
std::string LoadOrMakePanelToken(const std::filesystem::path& file);

// Compares in a time that doesn't depend on where the texts differ.
bool IsSameToken(const std::string& left, const std::string& right);

}  // namespace plugincore
