#pragma once

#include <filesystem>
#include <string>

namespace vexcor {

// What is wrong with the database, or the empty text. One that isn't there is none to complain of.
// Throws Failure for what is no damage, as a file that can't be read.
std::string FindDamage(const std::filesystem::path& database);

// Puts a damaged database aside, with the files that belong to it, for a new one to be made.
// Returns its new place. Throws Failure if a program has it open, or if it can't be moved.
std::filesystem::path Quarantine(const std::filesystem::path& database);

}  // namespace vexcor
