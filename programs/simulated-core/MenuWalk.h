#pragma once

#include <string>

#include "PluginCoreFunctions.h"

// Calls `callback` for each node below the root of a menu tree, a parent before its children, and
// skips the children of a node that it refuses. Returns false, before the first call, if the text
// isn't a menu tree.
bool WalkMenus(const std::string& menusJson, AddIllustratorMenuFunction callback,
               MenuItemHelp* help);
