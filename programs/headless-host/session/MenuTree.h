#pragma once

#include <string>
#include <vector>

#include "model/Host.h"

namespace headless {

// An item in its place.
struct MenuEntry {
    void* handle = nullptr;
    const MenuItemObject* item = nullptr;
    size_t depth = 0;      // 0 for an item of a group that is no submenu
    std::string path;      // the texts of the items that lead to it and its own, "/" between
    std::string topGroup;  // the group at the root
};

// All items as the menus show them: by group in the order in which the groups got their first item,
// submenus behind their item.
std::vector<MenuEntry> ListMenus(const Host& host);

// The item whose path is `label`, else the first one whose text is; a null item if there is none.
MenuEntry FindMenuItem(const Host& host, const std::string& label);

bool IsSeparator(const MenuItemObject& item);

// The tree as lines: check marks, what is disabled, separators, submenus indented.
std::string DrawMenus(const Host& host);

}  // namespace headless
