#include "plugin-core/menus/MenuJson.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "plugin-core/menus/MenuModel.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"

using nlohmann::json;

namespace plugincore {
namespace {

bool IsNode(const json& node)
{
    if (!node.is_object()) return false;
    for (const char* key : {"id", "label", "title"}) {
        const auto member = node.find(key);
        if (member == node.end() || !member->is_string()) return false;
    }
    for (const char* key : {"checked", "enabled"}) {
        const auto member = node.find(key);
        if (member == node.end() || !member->is_boolean()) return false;
    }
    const auto child = node.find("child");
    if (child == node.end() || !child->is_array()) return false;
    return std::all_of(child->begin(), child->end(), IsNode);
}

struct HostMenu {
    AddIllustratorMenuFunction callback;
    MenuItemHelp* help;

    void AddAll(const json& nodes, const char* parent) const
    {
        for (const json& node : nodes) {
            const auto id = node.at("id").get<std::string>();
            const auto label = node.at("label").get<std::string>();
            const auto title = node.at("title").get<std::string>();
            const json& child = node.at("child");
            // Libraries can be added later, so this submenu is needed even if it is empty now.
            const bool hasSubmenu = !child.empty() || label == MenuModel::kSelectLibrary;
            const unsigned int status =
                callback(id.c_str(), label.c_str(), title.c_str(), node.at("checked").get<bool>(),
                         node.at("enabled").get<bool>(), hasSubmenu, parent, help);
            if (status == StatusCodes::kSuccess) {
                AddAll(child, label.c_str());
            } else {
                LogError("the host refused the menu item \"" + label + "\" with status " +
                         std::to_string(status));
            }
        }
    }
};

}  // namespace

void AddMenus(const std::string& menusJson, AddIllustratorMenuFunction callback, MenuItemHelp* help)
{
    const json root = json::parse(menusJson, nullptr, false);
    if (!IsNode(root)) {
        throw Failure(StatusCodes::kInvalidParam, "not a menu tree");
    }
    HostMenu{callback, help}.AddAll(root.at("child"), nullptr);
}

}  // namespace plugincore
