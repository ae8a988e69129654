#include "Menus.h"

#include <filesystem>
#include <nlohmann/json.hpp>

#include "StatusCodes.h"

using nlohmann::json;

namespace plugincore {
namespace {

constexpr const char* kSelectLibrary = "Select Library";

json MakeNode(const std::string& id, const std::string& title, json child = json::array())
{
    return {{"id", id},         {"label", title},  {"title", title},
            {"checked", false}, {"enabled", true}, {"child", std::move(child)}};
}

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
            // The libraries may come later, so their submenu is there from the start.
            const bool hasSubmenu = !child.empty() || label == kSelectLibrary;
            const unsigned int status =
                callback(id.c_str(), label.c_str(), title.c_str(), node.at("checked").get<bool>(),
                         node.at("enabled").get<bool>(), hasSubmenu, parent, help);
            if (status == StatusCodes::kSuccess)
                AddAll(child, label.c_str());
            else
                Report("the host refused the menu item \"" + label + "\" with status " +
                       std::to_string(status));
        }
    }
};

}  // namespace

std::string MakeMenus(const std::vector<std::string>& libraryFolders)
{
    json libraries = json::array();
    for (const std::string& folder : libraryFolders) {
        json node = MakeNode("library:" + folder, std::filesystem::path(folder).filename());
        node["checked"] = true;
        libraries.push_back(std::move(node));
    }
    json child = json::array();
    child.push_back(MakeNode("selectLibrary", kSelectLibrary, std::move(libraries)));
    child.push_back(MakeNode("about", "About Corvanta Fonts"));
    return MakeNode("root", "Corvanta", std::move(child))
        .dump(-1, ' ', false, json::error_handler_t::replace);
}

void AddMenus(const std::string& menusJson, AddIllustratorMenuFunction callback, MenuItemHelp* help)
{
    const json root = json::parse(menusJson, nullptr, false);
    if (!IsNode(root))
        throw Failure(StatusCodes::kInvalidParam, "the menu text isn't a tree of menu items");
    HostMenu{callback, help}.AddAll(root.at("child"), nullptr);
}

}  // namespace plugincore
