#include "../PluginSupport.h"

// Subscribes to all notifiers about documents, adds a small menu and two timers, and does nothing
// else: tests read the messages in the host's journal.
namespace {

const char* const kTypes[] = {
    "AI Document New Notifier",        "AI Document About To Close Notifier",
    "AI Document Changed Notifier",    "AI Document Write On Disk Complete Notifier",
    "AI Command Notifier: After Save", "AI Command Notifier: After Save As",
    "AI Font List Changed Notifier",   "AI Menu Changed Notifier"};

AIMenuItemHandle AddItem(const char* group, const char* text, int32_t options)
{
    plugin::Held<AIMenuSuite> menus("AI Menu Suite", 1011);
    plugin::Held<AIUnicodeStringSuite> strings("AI Unicode String Suite", 1008);
    struct {
        const char* group;
        void* text;
    } data = {group, nullptr};
    auto* const string = reinterpret_cast<ai::UnicodeString*>(&data.text);
    (void)strings->Initialize(string, text, std::char_traits<char>::length(text),
                              kAIPlatformCharacterEncoding);
    AIMenuItemHandle item = nullptr;
    (void)menus->AddMenuItem(plugin::self, nullptr,
                             reinterpret_cast<AIPlatformAddMenuItemDataUS*>(&data), options, &item);
    (void)strings->Destroy(string);
    return item;
}

void AddMenus()
{
    plugin::Held<AIMenuSuite> menus("AI Menu Suite", 1011);
    (void)AddItem("Type", "Plain", 1);
    (void)menus->DisableItem(AddItem("Type", "Gray", 0));
    (void)AddItem("Type", "", 4);
    AIMenuGroup group = nullptr;
    (void)menus->AddMenuGroupAsSubMenu("Inner", 0, AddItem("Type", "More", 1), &group);
    (void)menus->CheckItem(AddItem("Inner", "Deep", 1), true);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    const AIErr result = plugin::Serve(caller, selector, message, nullptr, nullptr);
    if (std::string(caller) == "SP Interface" && std::string(selector) == "Startup") {
        plugin::Held<AINotifierSuite> notifiers("AI Notifier Suite", 1004);
        plugin::Held<AITimerSuite> timers("AI Timer Suite", 1005);
        for (const char* const type : kTypes) {
            AINotifierHandle notifier = nullptr;
            (void)notifiers->AddNotifier(plugin::self, type, type, &notifier);
        }
        AITimerHandle timer = nullptr;
        (void)timers->AddTimer(plugin::self, "every tick", 1, &timer);
        (void)timers->AddTimer(plugin::self, "every third", 3, &timer);
        AddMenus();
    }
    return result;
}
