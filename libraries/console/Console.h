#pragma once

#include <exception>
#include <string>

// What a program writes to the terminal. One thread.
namespace console {

// Sets the program's name, a literal, which is also the name in the log. Call it once, before any
// other function.
void SetProgramName(const char* name);

// Writes one line to standard error, after the program's name, with control characters replaced,
// and logs it as an error.
void PrintError(const std::string& text);

// The same for an exception: prints its text, or "out of memory" for std::bad_alloc.
void PrintException(const std::exception& exception);

// The same for a text of several lines: writes the title after the program's name, and below it the
// lines of the text, indented. Logs everything as one line.
void PrintErrorLines(const std::string& title, const std::string& text);

// Writes the text to standard output and flushes it. Returns false after an error, which is
// reported by PrintError, except for a pipe that nobody reads.
bool Print(const std::string& text);

// Returns the text with each control character replaced by '?'.
std::string MakePrintable(const std::string& text);

}  // namespace console
