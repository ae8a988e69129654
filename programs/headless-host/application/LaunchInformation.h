#pragma once

#include <string>

namespace headless {

// Lets the plug-in find the PluginCore that is installed beside this program (bin/headless-host,
// Vexcor/PluginFiles/PluginCore.framework), as `Vexcor install` does: writes the launch information
// file in the user's data folder if none exists. An existing file is never changed. Without a
// PluginCore beside the program it does nothing.
//
// Returns the path of the file it has written; empty if it wrote none. Errors are ignored: the
// plug-in reports that PluginCore is missing.
std::string ProvideLaunchInformation();

}  // namespace headless
