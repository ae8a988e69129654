#pragma once

#include <string>

// The log of the program, in lines of the core library's logger. Without --log it is silent. The
// plug-in's own logger is another one and stays so.
namespace headless {

// From now on lines of all levels are appended to the file. False, and one line in `error`, if it
// can't be opened.
bool OpenLog(const std::string& file, std::string& error);

void LogProblem(const std::string& line);
void LogAction(const std::string& line);

}  // namespace headless
