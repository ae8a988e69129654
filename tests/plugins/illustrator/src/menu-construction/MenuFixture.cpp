#include "MenuFixture.h"

#include <set>

#include "HostSuites.h"

MenuTest::~MenuTest() { ForgetMenus(); }

// The unit keeps its items for the life of the process, but for those of the libraries. So every
// handle is made a library's, by a host of its own, and a rebuild drops them all. What remains is
// the empty id under the null handle.
void MenuTest::ForgetMenus()
{
    std::set<AIMenuItemHandle> handles;
    for (const ScriptedMenuItem& item : host.menuItems) handles.insert(item.handle);

    core->onCall.clear();
    core->statuses.clear();
    core->statuses["GetMenus"] = 0x01000000;  // so the text is empty
    ScriptedHost another;
    gGlobals = nullptr;
    sAcquireCount = 0;
    SPInterfaceMessage message = another.InterfaceMessage();
    (void)another.Send(Main, "SP Interface", "Startup", message);

    const auto submenu = static_cast<AIMenuItemHandle>(another.NewHandle());
    handles.insert(submenu);
    another.menuItemHandles = {submenu};
    (void)Add("", kLibraryLabel, "x", "Group", true);
    another.menuItemHandles.assign(handles.begin(), handles.end());
    for (std::size_t count = handles.size(); count > 0; --count) {
        (void)Add("", "", "x", kLibraryLabel);
    }
    RebuildWorkgroupsMenu();
    another.GiveNull("AIMenuSuite.AddMenuItem");
    (void)Add("", kLibraryLabel, "x");
    AIMenuMessage update = another.MenuMessage(nullptr);
    (void)updateMenuItem(&update);

    message = another.InterfaceMessage();
    (void)another.Send(Main, "SP Interface", "Shutdown", message);
}

unsigned int MenuTest::Add(const char* id, const char* label, const char* title, const char* parent,
                           bool hasSubmenu)
{
    MenuItemHelp help;
    return AddIllustratorMenu(id, label, title, false, true, hasSubmenu, parent, &help);
}

AIMenuItemHandle MenuTest::AddForeignItem(const std::string& key, const std::string& text)
{
    const auto handle = static_cast<AIMenuItemHandle>(host.NewHandle());
    host.menuItems.push_back({nullptr, key, "File", text, 0, true, false, false, handle, nullptr});
    return handle;
}

const ScriptedMenuItem& MenuTest::Item(const std::string& text)
{
    static const ScriptedMenuItem kNone{};
    for (const ScriptedMenuItem& item : host.menuItems) {
        if (item.text == text && !item.removed) return item;
    }
    ADD_FAILURE() << "no live item '" << text << "'";
    return kNone;
}

std::vector<std::string> MenuTest::LiveTexts()
{
    std::vector<std::string> texts;
    for (const ScriptedMenuItem& item : host.menuItems) {
        if (!item.removed) texts.push_back(item.text);
    }
    return texts;
}

AIErr MenuTest::SendUpdate(AIMenuItemHandle item)
{
    AIMenuMessage message = host.MenuMessage(item);
    return host.Send(Main, "AI Menu", "AI Update", message);
}

AIErr MenuTest::SendGo(AIMenuItemHandle item)
{
    AIMenuMessage message = host.MenuMessage(item);
    return host.Send(Main, "AI Menu", "AI Go", message);
}

void MenuTest::Update(const json& tree, const std::string& itemText)
{
    core->menus = tree.dump();
    EXPECT_EQ(SendUpdate(Item(itemText).handle), 0);
    EXPECT_FALSE(HasTrace("Unhandled exception in Typeloft plugin."));
}

void MenuTest::FailSecondGetMenus(unsigned int status)
{
    core->onCall["GetMenus"] = [this, status] {
        const bool second = core->calls.back().find(", buffer, ") != std::string::npos;
        core->statuses["GetMenus"] = second ? status : 0;
    };
}

void MenuTest::AnswerFirstGetMenus(unsigned int status)
{
    static unsigned int sAnswer = 0;
    sAnswer = status;
    core.Loader().pfGetMenus = [](const char*, char* buffer, size_t*) {
        EXPECT_EQ(buffer, nullptr) << "asked a second time";
        return sAnswer;
    };
}

std::string MenuTest::LastSelection()
{
    for (auto call = core->calls.rbegin(); call != core->calls.rend(); ++call) {
        if (call->compare(0, 20, "HandleMenuSelection(") == 0) return *call;
    }
    return "not called";
}

std::string MenuTest::IdPassedFor(AIMenuItemHandle item)
{
    const int current = host.currentDocument;
    host.currentDocument = -1;
    core->calls.clear();
    EXPECT_EQ(SendGo(item), 0);
    host.currentDocument = current;
    const std::string call = LastSelection();
    // (document, state, id, fonts): without a document the first and the last are empty.
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
