#include "LibraryMenu.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "DebugUtils.h"
#include "GJSONUtils.h"
#include "MenuConstruction.h"
#include "MenuState.h"
#include "PluginGlobals.h"

namespace {

void TraceMissingHandle()
{
    OutputIndentedAndFormattedString(
        0, "Skipping workgroup menu rebuild because the menu handle is NULL");
}

// Walks the submenu's items. The destructor takes those that were walked over off the list, also if
// an exception ends the rebuild: the next one must not use their handles again.
class LibraryItemWalk {
public:
    LibraryItemWalk() = default;
    LibraryItemWalk(const LibraryItemWalk&) = delete;
    LibraryItemWalk& operator=(const LibraryItemWalk&) = delete;
    ~LibraryItemWalk() { mItems.erase(mItems.begin(), mItems.begin() + mCount); }

    bool IsDone() const { return mItems.begin() + mCount == mItems.end(); }
    AIMenuItemHandle TakeNext() { return *(mItems.begin() + mCount++); }

private:
    std::vector<AIMenuItemHandle>& mItems = gMenuState.sSelectLibraryMenuItems;
    std::ptrdiff_t mCount = 0;
};

void RemoveLibraryItems(const AIMenuSuite* menus)
{
    LibraryItemWalk walk;
    while (!walk.IsDone()) {
        const AIMenuItemHandle item = walk.TakeNext();
        gMenuState.sMenuHandleMap.erase(item);
        try {
            ThrowAIErr(menus->RemoveMenuItem(item));
        } catch (int error) {
            OutputIndentedAndFormattedString(0, "Error %d in clearing workgroups menu", error);
        }
    }
}

// Writes the child nodes of the "Select Library" item to `libraries`, or all nodes of the top level
// if none of them has that label.
unsigned int FindLibraries(const std::string& menus, json& libraries)
{
    json root;
    const GJSONScope rootScope(root);
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
        json children;
        const GJSONScope childrenScope(children);
        status = GJSONUtils::GetValueForKey(item, "child", children);
        // `item` is part of what the scope empties.
        if (status == 0) libraries.swap(children);
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
    // On an error the text can't be parsed, which FindLibraries reports.
    (void)GetMenus(menus);
    AIMenuGroup group = nullptr;
    // On an error the group is null.
    (void)help.menuSuite->GetItemSubMenuGroup(gMenuState.sSelectLibraryMenuHandle, &group);
    if (group == nullptr) {
        OutputIndentedAndFormattedString(
            0, "Could not retrieve the submenu group for the libraries menu");
        return;
    }
    RemoveLibraryItems(help.menuSuite);
    json libraries;
    const GJSONScope scope(libraries);
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
        // The host refused the suite. PluginCore, the caller, must not see the host's exception.
        TraceMissingHandle();
    }
    if (help) RebuildWith(*help);
    OutputIndentedAndFormattedString(-1, "Exiting %s()", "RebuildWorkgroupsMenu");
}
