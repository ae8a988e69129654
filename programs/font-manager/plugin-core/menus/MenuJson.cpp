#include "plugin-core/menus/MenuJson.h"

#include "plugin-core/menus/MenuTree.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"

namespace plugincore {

void AddMenus(const std::string& menusJson, AddIllustratorMenuFunction callback, MenuItemHelp* help)
{
    const bool isTree = WalkMenuTree(menusJson, [=](const MenuNode& node, const char* parent) {
        const unsigned int status =
            callback(node.id.c_str(), node.label.c_str(), node.title.c_str(), node.isChecked,
                     node.isEnabled, node.hasSubmenu, parent, help);
        if (status == StatusCodes::kSuccess) return true;
        LogError("the host refused the menu item \"" + node.label + "\" with status " +
                 std::to_string(status));
        return false;
    });
    if (!isTree) throw Failure(StatusCodes::kInvalidParam, "not a menu tree");
}

}  // namespace plugincore
