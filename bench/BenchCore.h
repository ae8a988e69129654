#pragma once

#include <string>

// A PluginCore in the same program. Its functions take almost no time and succeed, except
// GetSocketPort: there is no panel.
namespace bench_core {

// Makes the plug-in use this PluginCore.
void Use();

// Makes GetMenus return `menus`.
void SetMenus(const std::string& menus);

}  // namespace bench_core
