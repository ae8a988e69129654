#pragma once

#include <string>
#include <vector>

#include "session/Session.h"

namespace headless {

// Performs one line of a script: an action with its arguments. An empty line or a comment does
// nothing.
LineResult RunLine(Session& session, const std::string& line);

// The words with which a user can continue a line, sorted.
//
// line   the complete words before the cursor
// word   the beginning of the word at the cursor, without its opening quote
std::vector<std::string> CompleteLine(const Session& session, const std::string& line,
                                      const std::string& word);

// Whether a line of the script has the words `expect call` or `expect calls`, perhaps behind
// `during`.
bool AsksForCalls(const std::string& script);

// Whether the first line with words is `simulate`.
bool IsSimulation(const std::string& script);

}  // namespace headless
