#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "commands/LineSource.h"

namespace headless {

// Returns the words with which a user can continue.
//
// line   the complete words before the cursor
// word   the beginning of the word at the cursor, without its opening quote
using Completer =
    std::function<std::vector<std::string>(const std::string& line, const std::string& word)>;

// Reads lines from a prompt on the terminal with editing, history and completion. There can be one
// at a time.
//
// historyFile   keeps the history for the next prompt; only the user can read it. Empty for none.
// Throws std::runtime_error if the terminal cannot be used.
std::unique_ptr<LineSource> ReadPrompt(IdleWork idle, Completer completer,
                                       const std::string& historyFile);

}  // namespace headless
