#pragma once

#include <string>
#include <vector>

#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/library/LibraryFolders.h"

namespace plugincore {

class Settings;
struct Services;

// The ids of the menu items.
struct MenuModel {
    static constexpr const char* kActivateFonts = "activateFonts";
    static constexpr const char* kDeactivateUnused = "deactivateUnused";
    static constexpr const char* kShowMissing = "showMissing";
    static constexpr const char* kAddFolder = "addFolder";
    static constexpr const char* kRevealLibrary = "revealLibrary";
    static constexpr const char* kDialogSuppression = "dialogSuppression";
    static constexpr const char* kAbout = "about";
    static constexpr const char* kLibrary = "library:";        // followed by the library's path
    static constexpr const char* kActivation = "activation:";  // followed by the setting's text
};

// What the menu depends on.
struct MenuState {
    bool hasDocument = false;
    ActivationMode mode = ActivationMode::kAutomatic;
    bool suppressesDialog = true;
    std::vector<Library> libraries;
    std::string selectedLibrary;  // a path; "" if fonts are taken from all libraries
};

// Reads the present state, except hasDocument. `services` is null while PluginCore is stopped: the
// libraries are then those in the root folders. Throws Failure.
MenuState GetMenuState(Settings& settings, Services* services);

// The menu tree as JSON, in the form that PluginCoreFunctions.h describes.
std::string MakeMenus(const MenuState& state);

// The id of a library's item. Bytes of the path that aren't UTF-8 are replaced, as they are in the
// JSON text.
std::string MakeLibraryId(const Library& library);

// Whether the plug-in suppresses the host's missing-fonts dialog, by the text of the setting: it
// does unless the text begins with a number from 2 on.
constexpr const char* kSuppressionSetting = "DialogSuppression";
bool IsSuppressionOn(const std::string& setting);

}  // namespace plugincore
