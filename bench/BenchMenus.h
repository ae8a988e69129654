#pragma once

#include <string>

#include "HostInterface.h"

// A menu bar that forgets everything, and menu trees of any size.
namespace bench_menus {

AIMenuSuite* GetMenuSuite();

// The JSON of a tree with so many nodes: submenus of ten items.
std::string MakeTree(int nodes);

}  // namespace bench_menus
