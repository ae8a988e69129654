#pragma once

#include <string>

// The log of the program, in lines of the core library's logger under the program's name. Without a
// file it is silent. The logger of a plug-in that the program loads is another one and stays so.
namespace console {

// From now on lines of all levels are appended to the file. False, and one line in `error`, if it
// can't be opened.
bool OpenLog(const std::string& file, std::string& error);

void LogProblem(const std::string& line);
void LogAction(const std::string& line);

}  // namespace console
