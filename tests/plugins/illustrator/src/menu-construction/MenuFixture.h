#pragma once

#include "MenuHandler.h"
#include "MenuState.h"
#include "MessageFixture.h"

constexpr AIErr kHostError = 4711;
inline const char* const kTopGroup = "Type Plugins1";
// Traced for an exception that Main stops.
inline const char* const kBarrier = "Unhandled exception in Typeloft plugin.";

// Tests of the menus. Each test starts without menus.
class MenuFixture : public MessageFixture {
protected:
    MenuFixture();

    // Adds an item as PluginCore does. A null parent adds it to the top level.
    static unsigned int Add(const char* id, const char* label, const char* title,
                            const char* parent = "Group", bool hasSubmenu = false);
    // Adds an item of another plug-in to the host.
    AIMenuItemHandle AddForeignItem(const std::string& key, const std::string& text = "Foreign");

    // The item with this text that hasn't been removed.
    const ScriptedMenuItem& Item(const std::string& text);
    std::vector<std::string> LiveTexts();

    // Send a message to Main, as the host does.
    AIErr SendUpdate(AIMenuItemHandle item);
    AIErr SendGo(AIMenuItemHandle item);
    // Sets the tree and sends an update for one of its items.
    void Update(const json& tree, const std::string& itemText);

    // Makes the second call of PluginCore's GetMenus, the one with a buffer, return the status.
    void FailSecondGetMenus(unsigned int status = CoreErrorCodes::kError);
    // Makes the first call return the status; fails the test if there is a second one.
    void AnswerFirstGetMenus(unsigned int status);

    // The last call of HandleMenuSelection, as the scripted PluginCore records it.
    std::string LastSelection();
    // The id that a command for the item passes to PluginCore, in quotes.
    std::string IdPassedFor(AIMenuItemHandle item);
};

// The same with a running plug-in.
class RunningMenuFixture : public MenuFixture {
protected:
    RunningMenuFixture() { Start(); }
};

// A node of the menu tree with all members: enabled, not checked, the id also as the label.
json Node(const std::string& id, const std::string& title, const std::vector<json>& children = {});
// The root of a menu tree; its id, label and title are "root".
json Tree(const std::vector<json>& children);
