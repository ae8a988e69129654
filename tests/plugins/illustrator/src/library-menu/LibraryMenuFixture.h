#pragma once

#include "MenuFixture.h"

inline const char* const kNoHandle =
    "Skipping workgroup menu rebuild because the menu handle is NULL";
inline const char* const kNoGroup = "Could not retrieve the submenu group for the libraries menu";

// A running plug-in whose menus have the item "Libraries" with the "Select Library" submenu.
class LibraryMenuFixture : public RunningMenuFixture {
protected:
    LibraryMenuFixture();

    // One node per title; its id is "lib " and the title.
    static std::vector<json> Libraries(const std::vector<std::string>& titles);
    // A tree with these nodes in the "Select Library" submenu.
    static json With(const std::vector<json>& nodes);
    // Calls the rebuild while PluginCore's menus are this tree or text.
    void Rebuild(const json& tree);
    void RebuildFromText(const std::string& text);
    // The same; returns whether the rebuild throws an Exception.
    template <class Exception>
    bool RebuildThrows(const json& tree)
    {
        core->menus = tree.dump();
        try {
            RebuildWorkgroupsMenu();
        } catch (const Exception&) {
            return true;
        }
        return false;
    }

    // The texts of the submenu's items.
    std::vector<std::string> Submenu();
    // Expects that a command for each of these items passes the id of its node to PluginCore.
    void ExpectIdsPassed();
    // Expects that the menu suite and all strings and paths are released.
    void ExpectAllReleased();
};
