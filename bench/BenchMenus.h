#pragma once

#include <string>

#include "HostInterface.h"

// A menu suite that stores nothing, and menu trees of any size.
namespace bench_menus {

AIMenuSuite* GetMenuSuite();

// Returns the JSON of a tree with `nodes` nodes, in submenus of ten items.
std::string MakeTree(int nodes);

}  // namespace bench_menus
