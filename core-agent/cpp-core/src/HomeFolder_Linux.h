#pragma once

#include <string>

// Returns the home folder of a user, from the user database. For an empty name: $HOME, then the
// current user's entry in the database. Empty result if the user is unknown. [any thread]
std::string GetHomeFolder(const std::string& userName);
