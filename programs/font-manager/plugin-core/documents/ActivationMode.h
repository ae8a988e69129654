#pragma once

#include <string>

namespace plugincore {

// What is to happen to a document's fonts that aren't active: the setting "FontActivation".
enum class ActivationMode {
    kOff,        // "0": nothing by itself; the menu command still activates
    kAutomatic,  // "1": activate all
    kAsk,        // "2": let the user choose, on the terminal; without one, activate none
};

constexpr const char* kActivationSetting = "FontActivation";

// Any other text, the empty one included, means: ask if there is a terminal to ask on, else
// activate all.
ActivationMode ReadActivationMode(const std::string& setting);

// The text of the setting.
std::string WriteActivationMode(ActivationMode mode);

}  // namespace plugincore
