#include "plugin-core/menus/MenuModel.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "base/Utf8.h"
#include "plugin-core/menus/MenuTree.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Locations.h"
#include "plugin-core/storage/Settings.h"

using nlohmann::json;

namespace plugincore {
namespace {

json MakeNode(const std::string& id, const std::string& title, json child = json::array())
{
    return {{"id", id},         {"label", title},  {"title", title},
            {"checked", false}, {"enabled", true}, {"child", std::move(child)}};
}

json MakeItem(const std::string& id, const std::string& title, bool isEnabled, bool isChecked)
{
    json node = MakeNode(id, title);
    node["enabled"] = isEnabled;
    node["checked"] = isChecked;
    return node;
}

// An empty title makes a separator. Labels must be unique, separators included.
json MakeSeparator(const std::string& id)
{
    json node = MakeNode(id, "");
    node["label"] = id;
    return node;
}

json MakeLibraries(const MenuState& state)
{
    json nodes = json::array();
    for (const Library& library : state.libraries) {
        const std::string id = MakeLibraryId(library);
        const std::string title = base::ToValidUtf8(library.name);
        json node = MakeItem(id, title, true, library.path == state.selectedLibrary);
        // The submenu has this label already, and labels must be unique.
        if (title == kSelectLibraryLabel) node["label"] = id;
        nodes.push_back(std::move(node));
    }
    return nodes;
}

json MakeModes(ActivationMode present)
{
    const auto makeMode = [present](ActivationMode mode, const char* title) {
        return MakeItem(MenuModel::kActivation + WriteActivationMode(mode), title, true,
                        mode == present);
    };
    return json::array({makeMode(ActivationMode::kAutomatic, "Activate Automatically"),
                        makeMode(ActivationMode::kAsk, "Ask Before Activating"),
                        makeMode(ActivationMode::kOff, "Activation Off")});
}

}  // namespace

std::string MakeLibraryId(const Library& library)
{
    return MenuModel::kLibrary + base::ToValidUtf8(library.path);
}

MenuState GetMenuState(Settings& settings, Services* services)
{
    const Locations locations = GetLocations();
    MenuState state;
    state.mode = GetActivationMode(settings, locations.settings);
    state.suppressesDialog = IsSuppressionOn(settings.Get(locations.settings, kSuppressionSetting));
    if (services) {
        state.libraries = services->folders.List();
        state.selectedLibrary = services->folders.GetSelected();
    } else {
        state.libraries = ListLibraries(locations.libraries, {});
    }
    return state;
}

bool IsSuppressionOn(const std::string& setting)
{
    return std::strtol(setting.c_str(), nullptr, 10) < 2;
}

std::string MakeMenus(const MenuState& state)
{
    json child = json::array({
        MakeItem(MenuModel::kActivateFonts, "Activate Document Fonts", state.hasDocument, false),
        MakeItem(MenuModel::kDeactivateUnused, "Deactivate Unused Fonts", true, false),
        MakeItem(MenuModel::kShowMissing, "Show Missing Fonts", state.hasDocument, false),
        MakeSeparator("separator:libraries"),
        MakeNode("selectLibrary", kSelectLibraryLabel, MakeLibraries(state)),
        MakeNode(MenuModel::kAddFolder, "Add Font Folder..."),
        MakeNode(MenuModel::kRevealLibrary, "Reveal Font Library"),
        MakeSeparator("separator:preferences"),
        MakeNode("activation", "Font Activation", MakeModes(state.mode)),
        MakeItem(MenuModel::kDialogSuppression, "Hold Back Missing Fonts Dialog", true,
                 state.suppressesDialog),
        MakeNode(MenuModel::kAbout, "About Corvanta Fonts"),
    });
    return base::PrintJson(MakeNode("root", "Corvanta", std::move(child)));
}

}  // namespace plugincore
