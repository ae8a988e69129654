#pragma once

#include <string>
#include <vector>

// Where the font manager's core process lies: told by the running process, or by the launch
// information file in the user's library folder. Main thread; no state is kept.
//
// The file is plain text in lines; a line that holds the key anywhere, then "=", gives what follows
// up to its end, nothing trimmed. There is no escaping and no comment.

// CoreErrorCodes::kUnknownError, and no change, when no process of this executable name runs; else
// the folder of the first that the system lists, with a separator at its end. Case counts.
unsigned int GetPathToRunningProcessExe(const std::string& exeName, std::string& outDirectory);

// CoreErrorCodes::kUnknownError, and no change, without the file or a line that gives a value.
unsigned int GetConfiguredPath(const std::string& vendorFolder, const std::string& fileName,
                               const std::string& key, std::string& outValue);

// The user's library folder.
void GetUsersAppDataDirectory(std::string& out);

// False, and no change, without a "=" in front of the line's end, which is the first carriage
// return, else the first line feed, else the end of the text.
bool GetValueAtEndOfThisLine(char const* line, std::string* outValue);

// The paths of the executables of the running processes, in the system's order. Those that it
// doesn't tell are left out.
std::vector<std::string> OSGetRunningExecutables();

// True for whatever stands at the path, a folder as well.
bool OSPathExists(const std::string& path);
