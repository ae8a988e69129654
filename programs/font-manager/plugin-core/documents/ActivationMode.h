#pragma once

#include <filesystem>
#include <string>

namespace plugincore {

class Settings;

// What PluginCore does with fonts of a document that aren't active: the setting "FontActivation".
enum class ActivationMode {
    kOff,        // "0": activates none, except by the menu command
    kAutomatic,  // "1": activates all
    kAsk,        // "2": asks the user on the terminal; without a terminal, activates none
};

constexpr const char* kActivationSetting = "FontActivation";

// The mode for the text of the setting. Any other text, "" included, means kAsk if the user can be
// asked (see IsInteractive) and kAutomatic if not.
ActivationMode ReadActivationMode(const std::string& setting);

// The mode that the settings in `file` select.
ActivationMode GetActivationMode(Settings& settings, const std::filesystem::path& file);

// The text of the setting for a mode.
std::string WriteActivationMode(ActivationMode mode);

}  // namespace plugincore
