#pragma once

#include <string>

namespace CLI {
class App;
}

namespace console {

// Returns a script for zsh(1), to be called _PROGRAM, that completes the commands of `app`, their
// options and arguments. ListCompletionWords decides what completes what.
std::string WriteZshCompletion(const CLI::App& app);

}  // namespace console
