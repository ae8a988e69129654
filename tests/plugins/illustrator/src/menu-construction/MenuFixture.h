#pragma once

#include "../src/MessageFixture.h"
#include "MenuHandler.h"

constexpr AIErr kHostError = 4711;
inline const char* const kTopGroup = "Type Plugins1";
inline const char* const kLibraryLabel = "Select Library";

// The menus between a scripted host and a scripted PluginCore. What the plug-in remembers of a
// test's menus is forgotten at its end.
class MenuTest : public MessageTest {
protected:
    ~MenuTest() override;

    // Adds an item as PluginCore's callback does. A null parent makes a top-level item.
    static unsigned int Add(const char* id, const char* label, const char* title,
                            const char* parent = "Group", bool hasSubmenu = false);
    // An item that another plug-in has in the host.
    AIMenuItemHandle AddForeignItem(const std::string& key, const std::string& text = "Foreign");

    // The live item of that text.
    const ScriptedMenuItem& Item(const std::string& text);
    std::vector<std::string> LiveTexts();

    // Messages through the entry, as the host sends them.
    AIErr SendUpdate(AIMenuItemHandle item);
    AIErr SendGo(AIMenuItemHandle item);
    // One update for an item that is in the tree.
    void Update(const json& tree, const std::string& itemText);

    // PluginCore's second answer to the question for its menus.
    void FailSecondGetMenus(unsigned int status = 0x01000000);
    // The answer to the first one.
    void AnswerFirstGetMenus(unsigned int status);

    // The texts of HandleMenuSelection's last call, as the scripted PluginCore puts them.
    std::string LastSelection();
    // The id that a command on the item passes on, in quotes.
    std::string IdPassedFor(AIMenuItemHandle item);

private:
    void ForgetMenus();
};

// With the plug-in running.
class RunningMenuTest : public MenuTest {
protected:
    RunningMenuTest() { Start(); }
};

// A node of the menu tree with all its members: enabled, not checked, its label is its id.
json Node(const std::string& id, const std::string& title, const std::vector<json>& children = {});
// The root, whose texts are all "root".
json Tree(const std::vector<json>& children);
