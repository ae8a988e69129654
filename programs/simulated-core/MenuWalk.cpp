#include "MenuWalk.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "CodeScope.h"

using nlohmann::json;

namespace {

constexpr char kSelectLibrary[] = "Select Library";  // has a submenu even if it is empty

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

void AddNodes(const json& nodes, const char* parent, AddIllustratorMenuFunction callback,
              MenuItemHelp* help)
{
    for (const json& node : nodes) {
        const auto id = node["id"].get<std::string>();
        const auto label = node["label"].get<std::string>();
        const auto title = node["title"].get<std::string>();
        const bool hasSubmenu = !node["child"].empty() || label == kSelectLibrary;
        const bool isChecked = node["checked"].get<bool>();
        const bool isEnabled = node["enabled"].get<bool>();
        const unsigned int status = [&] {
            const CodeScope inPlugin(true);
            return callback(id.c_str(), label.c_str(), title.c_str(), isChecked, isEnabled,
                            hasSubmenu, parent, help);
        }();
        if (status == 0) AddNodes(node["child"], label.c_str(), callback, help);
    }
}

}  // namespace

bool WalkMenus(const std::string& menusJson, AddIllustratorMenuFunction callback,
               MenuItemHelp* help)
{
    const json root = json::parse(menusJson, nullptr, false);
    if (!IsMenuNode(root)) return false;
    AddNodes(root["child"], nullptr, callback, help);
    return true;
}
