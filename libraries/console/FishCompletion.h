#pragma once

#include <string>

namespace CLI {
class App;
}

namespace console {

// Returns a script for fish(1) that completes the commands of `app`, their options and arguments.
// ListCompletionWords decides what completes what.
std::string WriteFishCompletion(const CLI::App& app);

}  // namespace console
