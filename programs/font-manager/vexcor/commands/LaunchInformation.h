#pragma once

#include <filesystem>
#include <string>

// The launch information file. The plug-in reads from it where PluginCore is when Vexcor is not
// running.
namespace vexcor {

// Returns its path for this user. Throws Failure if no home folder is known.
std::filesystem::path GetLaunchInformationFile();

// Returns the contents `text` of the file with "vexcor.path=PROGRAM" in place of any other path.
// All other lines are kept. Readers search for the key anywhere in a line, so this line comes
// before any other that contains the key.
std::string SetVexcorPath(const std::string& text, const std::string& program);

}  // namespace vexcor
