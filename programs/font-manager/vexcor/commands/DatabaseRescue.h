#pragma once

#include <filesystem>
#include <string>

namespace vexcor {

// Returns what is wrong with the database, or "" if it is intact or doesn't exist. Throws Failure
// for an error that isn't damage, such as a file that can't be read.
std::string FindDamage(const std::filesystem::path& database);

// Renames a damaged database, together with SQLite's files beside it, so that a new one can be
// created. Returns its new path, which ends in ".damaged-" and a number. Throws Failure if a
// program has the database open, or if a file can't be renamed.
std::filesystem::path Quarantine(const std::filesystem::path& database);

}  // namespace vexcor
