#pragma once

#include <string>
#include <vector>

#include "PluginCoreFunctions.h"

namespace plugincore {

// The menu tree as JSON: "Select Library" with one node per library folder, and the about command.
// Every node has id, label, title, checked, enabled and child.
std::string MakeMenus(const std::vector<std::string>& libraryFolders);

// Calls back once per node below the root, a node before its children. The children of an item that
// the host refuses are left out and the rest goes on. Throws Failure with kInvalidParam, before the
// first call, for a text that isn't such a tree.
void AddMenus(const std::string& menusJson, AddIllustratorMenuFunction callback,
              MenuItemHelp* help);

}  // namespace plugincore
