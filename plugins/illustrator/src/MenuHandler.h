#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "HostInterface.h"

using nlohmann::json;

// The font manager's commands in the host's menus. PluginCore owns the tree and hands it over as
// JSON; here each node becomes a host item, is kept up to date and hands its command back.
//
// A node: "id" (what a command is passed on with), "label" (the internal name; that of a submenu
// names its host group), "title" (the text shown; empty for a separator), "checked", "enabled",
// "child" (array of nodes). Main thread; the JSON library's exceptions pass through.

// Holds the menu suite for the length of a scope. The constructor throws the host's code as an int.
struct MenuItemHelp {
    MenuItemHelp();
    ~MenuItemHelp();
    MenuItemHelp(const MenuItemHelp&) = delete;
    MenuItemHelp& operator=(const MenuItemHelp&) = delete;

    AIMenuSuite* menuSuite = nullptr;
};

// The menu JSON for the current document. PluginCore's second answer; 0 with an empty text if
// PluginCore has nothing to give.
unsigned int GetMenus(std::string& menus);

// Adds all items at startup. PluginCore's status.
unsigned int AddAllCorvantaMenuItems(SPInterfaceMessage* message);

// What PluginCore calls back for each item, parents first. `context` is the MenuItemHelp. 0, the
// host's code, or CoreErrorCodes::kItemAlreadyExists if a host item has the label as its key.
unsigned int AddIllustratorMenu(const char* id, const char* label, const char* title, bool checked,
                                bool enabled, bool hasSubmenu, const char* parentID, void* context);

// Copies the first node of the tree, parents before children, whose member `key` is the text
// `value`. 0, or CoreErrorCodes::kUnknownError without one. Throws for a node without the key.
unsigned int GetMenuObject(const json& node, const char* key, const char* value, json& found);

// Brings check marks and enabled state of all items into line with PluginCore. 0, or
// kHostBadParameter for a null message.
int updateMenuItem(AIMenuMessage* message);

// Passes a command with its document and fonts on to PluginCore. 0, or kHostBadParameter for a null
// message.
int GoMenuItem(AIMenuMessage* message);

// Builds the items of the "Select Library" submenu anew. Called by PluginCore.
void RebuildWorkgroupsMenu();
