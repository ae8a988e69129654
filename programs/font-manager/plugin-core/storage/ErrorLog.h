#pragma once

#include <string>

// Where PluginCore writes the errors that no caller sees as a status.
namespace plugincore {

// Writes "PluginCore: ", the line and a line feed to standard error in one piece, or passes the
// line to the sink if one is set. [main-thread]
void LogError(const std::string& line);

// Sends all later lines to `sink`; null restores standard error. For programs that have a log of
// their own. [main-thread]
using ErrorSink = void (*)(const std::string& line);
void SetErrorSink(ErrorSink sink);

}  // namespace plugincore
