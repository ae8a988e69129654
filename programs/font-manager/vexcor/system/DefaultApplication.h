#pragma once

#include <string>
#include <vector>

#include "vexcor/system/Job.h"

namespace vexcor {

// The name of the desktop entry that runs `Vexcor with`.
constexpr const char* kOwnDesktopEntry = "com.corvanta.Vexcor.desktop";

// How an application opens files.
struct ApplicationCommands {
    std::string name;                        // of the application, for the user
    std::string folder;                      // the working folder; "" for the present one
    std::vector<CommandLineWords> commands;  // several if it opens one file each
};

// Returns the commands by which the user's default applications open the files: one element for
// each application, in the order of the files. An application that is the desktop entry of Vexcor
// itself is replaced by the next one that the desktop recommends.
//
// files   absolute paths of files that exist
// Throws Failure for a file for which there is no application.
std::vector<ApplicationCommands> FindDefaultApplications(const std::vector<std::string>& files);

}  // namespace vexcor
