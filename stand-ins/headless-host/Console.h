#pragma once

#include <string>

namespace headless {

// One line on standard error, with the program's name before it and without control characters. It
// goes to the log, too.
void Tell(const std::string& text);

// Writes to standard output at once. False if that isn't possible; it has been told then.
bool Print(const std::string& text);

}  // namespace headless
