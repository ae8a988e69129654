#pragma once

#include <map>
#include <string>
#include <vector>

#include "HostInterface.h"

// What the menu code remembers between two calls. Main thread; lives for the whole process.
struct MenuState {
    std::map<_t_AIMenuItemOpaque*, std::string> sMenuHandleMap;  // host item to menu id
    std::string sLastKnownMenuState;                             // the JSON of the last update
    _t_AIMenuItemOpaque* sSelectLibraryMenuHandle = nullptr;
    std::vector<_t_AIMenuItemOpaque*> sSelectLibraryMenuItems;  // in the order of adding
};

extern MenuState gMenuState;

constexpr char kSelectLibrary[] = "Select Library";
