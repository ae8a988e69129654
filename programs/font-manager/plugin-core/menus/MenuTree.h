#pragma once

#include <functional>
#include <string>

namespace plugincore {

// The label by which the plug-in finds the submenu that it rebuilds.
constexpr const char* kSelectLibraryLabel = "Select Library";

// A node of a menu tree, as the plug-in is told of it.
struct MenuNode {
    std::string id;
    std::string label;
    std::string title;
    bool isChecked = false;
    bool isEnabled = false;
    bool hasSubmenu = false;
};

// Adds a node to the menus below the node with the label `parent`; null for the top. Returns false
// to skip the node's children.
using AddMenuNode = std::function<bool(const MenuNode& node, const char* parent)>;

// Calls `add` for each node below the root of a menu tree, a parent before its children.
//
// menusJson  the menu tree, in the form that PluginCoreFunctions.h describes
// Returns false, before the first call, if the text isn't a menu tree.
bool WalkMenuTree(const std::string& menusJson, const AddMenuNode& add);

}  // namespace plugincore
