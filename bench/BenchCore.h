#pragma once

#include <cstddef>
#include <string>

// A PluginCore in the same program. Its functions take almost no time and succeed, except
// GetSocketPort: there is no panel.
namespace bench_core {

// Makes the plug-in use this PluginCore.
void Use();

// Makes HandleOpenExistingDocument return `fonts`, a font list or "" (the default).
void SetFonts(const std::string& fonts);

// Returns how often fonts were activated so far, each time after a resolve dialog.
size_t CountActivations();

// Makes GetMenus return `menus`.
void SetMenus(const std::string& menus);

}  // namespace bench_core
