#include <optional>

#include "CoreErrorCodes.h"
#include "DebugUtils.h"
#include "GJSONUtils.h"
#include "MenuHandler.h"
#include "MenuState.h"
#include "TypeloftSPEA.h"

namespace {

void TraceMissingHandle()
{
    OutputIndentedAndFormattedString(
        0, "Skipping workgroup menu rebuild because the menu handle is NULL");
}

void RemoveLibraryItems(const AIMenuSuite* menus)
{
    for (const AIMenuItemHandle item : gMenuState.sSelectLibraryMenuItems) {
        gMenuState.sMenuHandleMap.erase(item);
        try {
            ThrowAIErr(menus->RemoveMenuItem(item));
        } catch (int error) {
            OutputIndentedAndFormattedString(0, "Error %d in clearing workgroups menu", error);
        }
    }
    gMenuState.sSelectLibraryMenuItems.clear();
}

// Leaves the nodes of the "Select Library" item in `libraries`; if no item of the top level is
// labelled so, those of the top level.
unsigned int FindLibraries(const std::string& menus, json& libraries)
{
    json root;
    unsigned int status = GJSONUtils::Parse(menus, root);
    if (status == 0) status = GJSONUtils::GetValueForKey(root, "child", libraries);
    if (status != 0) {
        OutputIndentedAndFormattedString(0, "Error %u when retrieving select library menu items",
                                         status);
        return status;
    }
    for (const json& item : libraries) {
        std::string label;
        status = GJSONUtils::GetValueForKey(item, "label", label);
        if (status != 0) break;
        if (label != kSelectLibrary) continue;
        // The item is part of what is replaced.
        const json found = item;
        status = GJSONUtils::GetValueForKey(found, "child", libraries);
        break;
    }
    return status;
}

void AddLibraryItems(const json& libraries, MenuItemHelp& help)
{
    for (const json& node : libraries) {
        const json& id = node.at("id");
        const json& label = node.at("label");
        const json& title = node.at("title");
        const json& checked = node.at("checked");
        const json& enabled = node.at("enabled");
        if (!label.is_string()) continue;
        const unsigned int result =
            AddIllustratorMenu(id.get<std::string>().c_str(), label.get<std::string>().c_str(),
                               title.get<std::string>().c_str(), checked.get<bool>(),
                               enabled.get<bool>(), false, kSelectLibrary, &help);
        if (result == 0) continue;
        OutputIndentedAndFormattedString(0, "AddIllustratorMenu result %d",
                                         static_cast<int>(result));
        break;
    }
}

void RebuildWith(MenuItemHelp& help)
{
    if (help.menuSuite == nullptr || gMenuState.sSelectLibraryMenuHandle == nullptr) {
        TraceMissingHandle();
        return;
    }
    std::string menus;
    // A failure shows as a text that can't be parsed.
    (void)GetMenus(menus);
    AIMenuGroup group = nullptr;
    // Whether there is a submenu shows in the group.
    (void)help.menuSuite->GetItemSubMenuGroup(gMenuState.sSelectLibraryMenuHandle, &group);
    if (group == nullptr) {
        OutputIndentedAndFormattedString(
            0, "Could not retrieve the submenu group for the libraries menu");
        return;
    }
    RemoveLibraryItems(help.menuSuite);
    json libraries;
    if (FindLibraries(menus, libraries) == 0) AddLibraryItems(libraries, help);
}

}  // namespace

void RebuildWorkgroupsMenu()
{
    OutputIndentedAndFormattedString(1, "Entering %s()", "RebuildWorkgroupsMenu");
    std::optional<MenuItemHelp> help;
    try {
        help.emplace();
    } catch (int) {
        // The suite was refused. PluginCore, which called, knows nothing of the host's codes.
        TraceMissingHandle();
    }
    if (help) RebuildWith(*help);
    OutputIndentedAndFormattedString(-1, "Exiting %s()", "RebuildWorkgroupsMenu");
}
