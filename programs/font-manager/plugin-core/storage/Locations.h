#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Where PluginCore keeps and finds things, by the user's environment as it is at the call.
namespace plugincore {

struct Locations {
    std::filesystem::path database;  // Corvanta/fonts.db in the data folder
    // Corvanta/com.corvanta.Vexcor-LaunchInfo.conf in the data folder
    std::filesystem::path launchInformation;
    std::filesystem::path activationFolder;  // fonts/corvanta in the data folder
    std::filesystem::path settings;          // Corvanta/settings.json in the configuration folder
    std::filesystem::path panelToken;        // Corvanta/panel-token in the state folder

    // The root folders of the font library: those of CORVANTA_FONT_LIBRARY, separated by colons and
    // made absolute, each once; empty parts are left out. Without any, Corvanta/Library in the data
    // folder.
    std::vector<std::string> libraries;
    bool librariesAreDefault = false;
};

// XDG_DATA_HOME, XDG_CONFIG_HOME and XDG_STATE_HOME are followed if they are absolute, else HOME.
// Throws Failure if no home folder is known.
Locations GetLocations();

}  // namespace plugincore
