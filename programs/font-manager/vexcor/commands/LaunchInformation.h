#pragma once

#include <filesystem>
#include <string>

// The file by which the plug-in finds PluginCore while Vexcor doesn't run.
namespace vexcor {

// Where it is for this user. Throws Failure if no home folder is known.
std::filesystem::path GetLaunchInformationFile();

// The file's text with the program's path in it. A line that told another path is replaced and all
// others stay. The line stands before any other that a reader, who looks for the key anywhere in a
// line, may take for it.
std::string SetVexcorPath(const std::string& text, const std::string& program);

}  // namespace vexcor
