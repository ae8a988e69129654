#pragma once

#include <string>

// The log of the program, in lines of the core library's logger. Without --log it is silent.
namespace vexcor {

// From now on lines of all levels are appended to the file. Throws Failure if it can't be opened.
void OpenLog(const std::string& file);

void LogProblem(const std::string& line);
void LogAction(const std::string& line);

}  // namespace vexcor
