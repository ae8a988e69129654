#pragma once

#include <string>

// The log file of a program, written through the core library's logger. Nothing is logged before
// OpenLog. A plug-in that the program loads has a logger of its own, which is not affected. One
// thread.
namespace console {

// Sets the name that lines are logged under, a literal. console::SetProgramName calls it.
void SetLogName(const char* name);

// Opens `file` for appending; from then on lines of all levels are written to it. Returns false and
// sets `error` to one line if the file can't be opened.
bool OpenLog(const std::string& file, std::string& error);

// Logs a line with the level Error. console::PrintError calls it.
void LogError(const std::string& line);

// Logs something that the program did, with the level Info.
void LogAction(const std::string& line);

}  // namespace console
