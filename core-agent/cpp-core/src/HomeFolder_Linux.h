#pragma once

#include <string>

// The home folder of the user of this name, from the user database; an empty name is the user's
// own, for which $HOME comes first. Empty when there is none.
std::string GetHomeFolder(const std::string& userName);
