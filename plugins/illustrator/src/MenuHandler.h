#pragma once

#include "LibraryMenu.h"
#include "MenuConstruction.h"
#include "MenuSearch.h"
#include "MenuSelection.h"

// The font manager's commands in the host's menus. PluginCore owns the menu tree and returns it as
// JSON; the plug-in adds an item to the host's menus for each node, keeps the items up to date, and
// passes the commands that the user chooses back to PluginCore.
//
// A node is an object:
//   "id"       names the command for PluginCore
//   "label"    the internal name; also the name of the host's group for a submenu
//   "title"    the text shown; empty for a separator
//   "checked"  whether the item has a check mark
//   "enabled"  whether the item can be chosen
//   "child"    array of the submenu's nodes
//
// Main thread. The JSON library's exceptions pass through.
