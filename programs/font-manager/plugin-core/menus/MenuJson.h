#pragma once

#include <string>

#include "PluginCoreFunctions.h"

namespace plugincore {

// Calls back once per node below the root, a node before its children. The children of an item that
// the host refuses are left out and the rest goes on. Throws Failure with kInvalidParam, before the
// first call, for a text that isn't such a tree.
void AddMenus(const std::string& menusJson, AddIllustratorMenuFunction callback,
              MenuItemHelp* help);

}  // namespace plugincore
