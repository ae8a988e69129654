#pragma once

#include <string>

namespace CLI {
class App;
}

namespace console {

// Returns a script for bash(1) that completes the commands of `app`, their options and arguments.
//
// The name of an argument decides what completes it: file names for FILE and PATH, folder names for
// DIR and FOLDER, nothing for any other. Commands and options that are hidden from help (those with
// an empty group) are left out.
std::string WriteBashCompletion(const CLI::App& app);

}  // namespace console
