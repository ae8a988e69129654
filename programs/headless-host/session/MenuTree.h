#pragma once

#include <string>
#include <vector>

#include "model/Host.h"

// The menus that the plug-in has built, as a user sees them.
namespace headless {

// A menu item with its depth in the tree.
struct MenuEntry {
    void* handle = nullptr;
    const MenuItemObject* item = nullptr;  // owned by the host
    size_t depth = 0;                      // 0 unless the item is in a submenu
    std::string path;      // the texts of the items above it and its own, separated by "/"
    std::string topGroup;  // the group at the root of the tree
};

// All items in the order of the menus: by group, in the order in which the groups got their first
// items; the items of a submenu follow the item that opens it.
std::vector<MenuEntry> ListMenus(const Host& host);

// The item whose path is `label`; if there is none, the first item whose text is `label`. The item
// is null if there is neither. Separators are not found.
MenuEntry FindMenuItem(const Host& host, const std::string& label);

bool IsSeparator(const MenuItemObject& item);

// The tree as lines of text with check marks, disabled items, separators and indented submenus.
std::string DrawMenus(const Host& host);

}  // namespace headless
