#include "MenuFixture.h"

// The menu code keeps its state until the process ends.
MenuFixture::MenuFixture() { gMenuState = MenuState(); }

unsigned int MenuFixture::Add(const char* id, const char* label, const char* title,
                              const char* parent, bool hasSubmenu)
{
    MenuItemHelp help;
    return AddIllustratorMenu(id, label, title, false, true, hasSubmenu, parent, &help);
}

AIMenuItemHandle MenuFixture::AddForeignItem(const std::string& key, const std::string& text)
{
    const auto handle = static_cast<AIMenuItemHandle>(host.NewHandle());
    host.menuItems.push_back({nullptr, key, "File", text, 0, true, false, false, handle, nullptr});
    return handle;
}

const ScriptedMenuItem& MenuFixture::Item(const std::string& text)
{
    static const ScriptedMenuItem kNone{};
    for (const ScriptedMenuItem& item : host.menuItems) {
        if (item.text == text && !item.removed) return item;
    }
    ADD_FAILURE() << "no live item '" << text << "'";
    return kNone;
}

std::vector<std::string> MenuFixture::LiveTexts()
{
    std::vector<std::string> texts;
    for (const ScriptedMenuItem& item : host.menuItems) {
        if (!item.removed) texts.push_back(item.text);
    }
    return texts;
}

AIErr MenuFixture::SendUpdate(AIMenuItemHandle item)
{
    AIMenuMessage message = host.MenuMessage(item);
    return host.Send(Main, "AI Menu", "AI Update", message);
}

AIErr MenuFixture::SendGo(AIMenuItemHandle item)
{
    AIMenuMessage message = host.MenuMessage(item);
    return host.Send(Main, "AI Menu", "AI Go", message);
}

void MenuFixture::Update(const json& tree, const std::string& itemText)
{
    core->menus = tree.dump();
    EXPECT_EQ(0, SendUpdate(Item(itemText).handle));
    EXPECT_FALSE(HasTrace("Unhandled exception in Typeloft plugin."));
}

void MenuFixture::FailSecondGetMenus(unsigned int status)
{
    core->onCall["GetMenus"] = [this, status] {
        const bool second = core->calls.back().find(", buffer, ") != std::string::npos;
        core->statuses["GetMenus"] = second ? status : 0;
    };
}

void MenuFixture::AnswerFirstGetMenus(unsigned int status)
{
    static unsigned int sAnswer = 0;
    sAnswer = status;
    core.Loader().pfGetMenus = [](const char*, char* buffer, size_t*) {
        EXPECT_EQ(nullptr, buffer) << "GetMenus was called a second time";
        return sAnswer;
    };
}

std::string MenuFixture::LastSelection()
{
    for (auto call = core->calls.rbegin(); call != core->calls.rend(); ++call) {
        if (call->compare(0, 20, "HandleMenuSelection(") == 0) return *call;
    }
    return "not called";
}

std::string MenuFixture::IdPassedFor(AIMenuItemHandle item)
{
    const int current = host.currentDocument;
    host.currentDocument = -1;
    core->calls.clear();
    EXPECT_EQ(0, SendGo(item));
    host.currentDocument = current;
    const std::string call = LastSelection();
    // The arguments are (document, state, id, fonts); without a document the fonts are empty.
    const std::string end = ", \"\")";
    if (call.size() <= end.size()) return call;
    const std::string rest = call.substr(0, call.size() - end.size());
    return rest.substr(rest.rfind(", ") + 2);
}

json Node(const std::string& id, const std::string& title, const std::vector<json>& children)
{
    json node = json::object();
    node["id"] = id;
    node["label"] = id;
    node["title"] = title;
    node["checked"] = false;
    node["enabled"] = true;
    node["child"] = json::array();
    for (const json& child : children) node["child"].push_back(child);
    return node;
}

json Tree(const std::vector<json>& children) { return Node("root", "root", children); }
