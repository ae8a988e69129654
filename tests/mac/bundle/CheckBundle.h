#pragma once

#include <string>

// Opens the plug-in's bundle as a host does and sends it a host's first and last messages: without
// a PluginCore, then with one. Prints one line per check. Alerts are recorded and not shown.
//
// bundle        the path of the folder TypeloftSPEA.aip
// fontManager   the path that the workspace lists as running; the folder PluginFiles beside it
// holds
//               PluginCore.framework. The file itself needn't exist.
// Returns the number of checks that failed. Call it once. [main-thread]
int CheckBundle(const std::string& bundle, const std::string& fontManager);
