#include "plugin-core/menus/MenuTree.h"

#include <algorithm>
#include <nlohmann/json.hpp>

using nlohmann::json;

namespace plugincore {

namespace {

bool HasMember(const json& node, const char* key, json::value_t type)
{
    const auto member = node.find(key);
    return member != node.end() && member->type() == type;
}

bool IsMenuNode(const json& node)
{
    return node.is_object() && HasMember(node, "id", json::value_t::string) &&
           HasMember(node, "label", json::value_t::string) &&
           HasMember(node, "title", json::value_t::string) &&
           HasMember(node, "checked", json::value_t::boolean) &&
           HasMember(node, "enabled", json::value_t::boolean) &&
           HasMember(node, "child", json::value_t::array) &&
           std::all_of(node["child"].begin(), node["child"].end(), IsMenuNode);
}

void WalkNodes(const json& nodes, const char* parent, const AddMenuNode& add)
{
    for (const json& node : nodes) {
        MenuNode menu;
        menu.id = node["id"].get<std::string>();
        menu.label = node["label"].get<std::string>();
        menu.title = node["title"].get<std::string>();
        menu.isChecked = node["checked"].get<bool>();
        menu.isEnabled = node["enabled"].get<bool>();
        const json& child = node["child"];
        // Libraries can be added later, so this submenu is needed even if it is empty now.
        menu.hasSubmenu = !child.empty() || menu.label == kSelectLibraryLabel;
        if (add(menu, parent)) WalkNodes(child, menu.label.c_str(), add);
    }
}

}  // namespace

bool WalkMenuTree(const std::string& menusJson, const AddMenuNode& add)
{
    const json root = json::parse(menusJson, nullptr, false);
    if (!IsMenuNode(root)) return false;
    WalkNodes(root["child"], nullptr, add);
    return true;
}

}  // namespace plugincore
