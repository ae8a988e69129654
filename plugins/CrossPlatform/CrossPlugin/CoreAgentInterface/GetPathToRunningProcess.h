#pragma once

#include <string>
#include <vector>

// Finds the font manager's core process: among the running processes, or through the launch
// information file in the user's library folder. Stateless. [main-thread]
//
// The launch information file is plain text. The value of a key is what follows the first "=" of a
// line that contains the key anywhere, up to the end of the line. Nothing is trimmed, and there are
// no escapes or comments.

// Sets outDirectory to the folder of the first running process with this executable name
// (case-sensitive), with a trailing separator.
//
// Returns CoreErrorCodes::kUnknownError and leaves it unchanged if no such process runs.
unsigned int GetPathToRunningProcessExe(const std::string& exeName, std::string& outDirectory);

// Sets outValue to the key's value in the file vendorFolder/fileName of the library folder, from
// the first line that has one.
//
// Returns CoreErrorCodes::kUnknownError and leaves it unchanged if there is no such file or line.
unsigned int GetConfiguredPath(const std::string& vendorFolder, const std::string& fileName,
                               const std::string& key, std::string& outValue);

// Sets `out` to the user's library folder. On Linux this is $XDG_DATA_HOME, by default
// ~/.local/share.
void GetUsersAppDataDirectory(std::string& out);

// Sets *outValue to the text between the first "=" and the end of the line.
//
// line   zero-terminated. It ends at the first carriage return; if there is none, at the first line
//        feed; if there is none, at the zero byte.
// Returns false and leaves *outValue unchanged if there is no "=" before the end of the line.
bool GetValueAtEndOfThisLine(char const* line, std::string* outValue);

// Returns the paths of the executables of the running processes, in the system's order: on Linux
// ascending by process number. Processes whose executable can't be read are left out.
std::vector<std::string> OSGetRunningExecutables();

// Returns true if a file, folder or anything else exists at `path` (UTF-8). Follows links.
bool OSPathExists(const std::string& path);
