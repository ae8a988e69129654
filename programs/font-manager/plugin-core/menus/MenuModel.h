#pragma once

#include <string>
#include <vector>

#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/library/LibraryFolders.h"

namespace plugincore {

// The menu's texts and ids. A library's id is kLibrary and its path, that of an activation mode
// kActivation and the setting.
struct MenuModel {
    static constexpr const char* kActivateFonts = "activateFonts";
    static constexpr const char* kDeactivateUnused = "deactivateUnused";
    static constexpr const char* kShowMissing = "showMissing";
    static constexpr const char* kAddFolder = "addFolder";
    static constexpr const char* kRevealLibrary = "revealLibrary";
    static constexpr const char* kDialogSuppression = "dialogSuppression";
    static constexpr const char* kAbout = "about";
    static constexpr const char* kLibrary = "library:";
    static constexpr const char* kActivation = "activation:";

    // The label by which the plug-in knows the submenu that it builds anew.
    static constexpr const char* kSelectLibrary = "Select Library";
};

// What the menu shows depends on this.
struct MenuState {
    bool hasDocument = false;
    ActivationMode mode = ActivationMode::kAutomatic;
    bool suppressesDialog = true;
    std::vector<Library> libraries;
    std::string selectedLibrary;  // a path, empty for all
};

// The menu tree as JSON. Every node has id, label, title, checked, enabled and child.
std::string MakeMenus(const MenuState& state);

// The id of a library's item. Bytes of the path that aren't UTF-8 are replaced, as in the tree.
std::string MakeLibraryId(const Library& library);

}  // namespace plugincore
