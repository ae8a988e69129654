#pragma once

#include <string>

// What a program tells whoever started it. One thread.
namespace console {

// The program's name, a literal. Called once, before anything else.
void SetProgramName(const char* name);
const char* GetProgramName();

// One line on standard error, with the program's name before it and without control characters. It
// goes to the log, too.
void Tell(const std::string& text);

// Writes to standard output at once. False if that isn't possible; it has been told then.
bool Print(const std::string& text);

// The text without control characters.
std::string MakePrintable(const std::string& text);

}  // namespace console
