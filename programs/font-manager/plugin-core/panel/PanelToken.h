#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace plugincore {

// Returns the token that a panel has to present: 64 hexadecimal digits. Reads it from the file, or
// writes a new one there if the file is missing, damaged or accessible for other users. Throws
// Failure.
std::string LoadOrMakePanelToken(const std::filesystem::path& file);

// Returns the port that servers with this token take if it is free, so that a page in a browser
// finds the next one after its own has ended. It is above the ports that Linux gives to
// connections.
uint16_t GetUsualPanelPort(const std::string& token);

// Compares in a time that doesn't depend on the position of the first difference, so that a client
// can't find the token by measuring.
bool IsSameToken(const std::string& left, const std::string& right);

}  // namespace plugincore
