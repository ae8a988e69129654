#pragma once

#include "MenuFixture.h"

inline const char* const kNoHandle =
    "Skipping workgroup menu rebuild because the menu handle is NULL";
inline const char* const kNoGroup = "Could not retrieve the submenu group for the libraries menu";

// A plug-in whose menus hold the item "Libraries", with the submenu of the libraries below it.
class LibraryMenuTest : public RunningMenuTest {
protected:
    LibraryMenuTest();

    // A node per title, with "lib " before it as the id.
    static std::vector<json> Libraries(const std::vector<std::string>& titles);
    // A tree with these nodes below "Select Library".
    static json With(const std::vector<json>& nodes);
    // PluginCore asks for a rebuild while its menus are these.
    void Rebuild(const json& tree);
    void RebuildFromText(const std::string& text);
    // The same for a rebuild that throws; whether it did.
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

    // The live items below the submenu, and whether a command on each passes the id of its node.
    std::vector<std::string> Submenu();
    void ExpectIdsPassed();
    void ExpectNothingIsOut();
};
