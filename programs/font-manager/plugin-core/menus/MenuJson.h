#pragma once

#include <string>

#include "PluginCoreFunctions.h"

namespace plugincore {

// Calls `callback` for each node below the root of a menu tree, a parent before its children.
//
// menusJson  the menu tree, in the form that PluginCoreFunctions.h describes
// help       passed to the callback
// If the callback refuses an item, logs that and skips the item's children. Throws Failure with
// kInvalidParam, before the first call, if the text isn't a menu tree.
void AddMenus(const std::string& menusJson, AddIllustratorMenuFunction callback,
              MenuItemHelp* help);

}  // namespace plugincore
