#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace plugincore {

// The files and folders that PluginCore uses.
struct Locations {
    std::filesystem::path database;  // Corvanta/fonts.db in the data folder
    // Corvanta/com.corvanta.Vexcor-LaunchInfo.conf in the data folder
    std::filesystem::path launchInformation;
    std::filesystem::path activationFolder;  // fonts/corvanta in the data folder
    std::filesystem::path settings;          // Corvanta/settings.json in the configuration folder
    std::filesystem::path panelToken;        // Corvanta/panel-token in the state folder

    // The root folders of the font library: those in CORVANTA_FONT_LIBRARY, separated by colons,
    // as absolute paths without duplicates; empty parts are ignored. A backslash before a colon or
    // a backslash makes that character a part of the name. The default is Corvanta/Library in the
    // data folder.
    std::vector<std::string> libraries;
    bool librariesAreDefault = false;
};

// Reads the locations from the environment as it is now. XDG_DATA_HOME, XDG_CONFIG_HOME and
// XDG_STATE_HOME are used if they are absolute paths, otherwise their default folders below HOME.
// Throws Failure if HOME is needed and isn't an absolute path.
Locations GetLocations();

}  // namespace plugincore
