#include <cstdlib>
#include <fstream>
#include <sstream>

#include "plugin-core/menus/MenuModel.h"

// The linker redirects PluginCore's calls of MakeMenus to the first function, and those of the
// second one to MakeMenus.
std::string MakeMenusOfFile(const plugincore::MenuState& state) __asm__(
    "__wrap__ZN10plugincore9MakeMenusB5cxx11ERKNS_9MenuStateE");
std::string MakeRealMenus(const plugincore::MenuState& state) __asm__(
    "__real__ZN10plugincore9MakeMenusB5cxx11ERKNS_9MenuStateE");

std::string MakeMenusOfFile(const plugincore::MenuState& state)
{
    const char* const home = std::getenv("HOME");
    std::ifstream file(std::string(home == nullptr ? "" : home) + "/menus.json");
    if (!file) return MakeRealMenus(state);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}
