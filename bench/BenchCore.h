#pragma once

#include <string>

// A PluginCore in the same program that says yes to everything at no cost.
namespace bench_core {

// Makes it the one that the plug-in uses.
void Use();

// What GetMenus answers from now on.
void SetMenus(const std::string& menus);

}  // namespace bench_core
