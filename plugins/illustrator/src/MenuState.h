#pragma once

#include <map>
#include <string>
#include <vector>

#include "HostInterface.h"

// What the menu code keeps between calls. The item handles belong to the host.
struct MenuState {
    // The menu id of each item of this plug-in. An item that the host refused to add has the null
    // handle as its key; a command for an unknown item adds an entry with an empty id.
    std::map<_t_AIMenuItemOpaque*, std::string> sMenuHandleMap;

    // The menu JSON from the last "AI Update" message; empty before the first. A rebuild of the
    // library submenu doesn't change it.
    std::string sLastKnownMenuState;

    // The item that holds the "Select Library" submenu; null until it is added.
    _t_AIMenuItemOpaque* sSelectLibraryMenuHandle = nullptr;

    // The items of that submenu, in the order of adding. Each rebuild replaces them.
    std::vector<_t_AIMenuItemOpaque*> sSelectLibraryMenuItems;
};

// Exists as long as the process and is never reset. [main-thread]; not guarded.
extern MenuState gMenuState;

// The label of the submenu's item and the name of its host group.
constexpr char kSelectLibrary[] = "Select Library";
