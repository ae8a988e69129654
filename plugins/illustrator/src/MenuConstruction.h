#pragma once

#include <string>

#include "HostInterface.h"

// Fetches the menu JSON (see MenuHandler.h) and adds the items. Main thread.

// Acquires the menu suite, and releases it at the end of the scope. The constructor throws the
// host's code as an int.
struct MenuItemHelp {
    MenuItemHelp();
    ~MenuItemHelp();
    MenuItemHelp(const MenuItemHelp&) = delete;
    MenuItemHelp& operator=(const MenuItemHelp&) = delete;

    AIMenuSuite* menuSuite = nullptr;
};

// Replaces `menus` by the menu JSON for the current document. Returns 0 with empty `menus` if
// PluginCore has none, else PluginCore's status for the call that writes the text. Throws
// std::bad_alloc if PluginCore's size can't be allocated; one beyond 64 MiB never is.
unsigned int GetMenus(std::string& menus);

// Adds all items at startup. Returns PluginCore's status. Throws the host's code as an int if it
// refuses the menu suite.
unsigned int AddAllCorvantaMenuItems(SPInterfaceMessage* message);

// Adds one item; PluginCore calls it for each node, parents before their children.
//
// parentID  the parent's label; null for an item of the top level
// context   the MenuItemHelp that PluginCore was given
// Returns 0, the host's code, or CoreErrorCodes::kItemAlreadyExists if an item of the top level has
// a label that another item of the host uses as its key.
unsigned int AddIllustratorMenu(const char* id, const char* label, const char* title, bool checked,
                                bool enabled, bool hasSubmenu, const char* parentID, void* context);
