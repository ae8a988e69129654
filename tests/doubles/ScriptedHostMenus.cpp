// The scripted host's registrations: notifiers, file formats, timers and menus.

#include "ScriptedHostSuites.h"

namespace {

template <class HandleType>
HandleType NewHandleOf()
{
    return static_cast<HandleType>(Host().NewHandle());
}

// Returns null for an unknown item, which is a fault, and for the null item, which isn't: the
// plug-in keeps an entry for it.
ScriptedMenuItem* Item(AIMenuItemHandle item)
{
    if (item == nullptr) return nullptr;
    for (ScriptedMenuItem& each : Host().menuItems) {
        if (each.handle == item && !each.removed) return &each;
    }
    (void)Host().Fault("no live menu item " + Handle(item));
    return nullptr;
}

// Returns the item's key, or its text if it has none. A removed item is no fault yet.
std::string NameOf(AIMenuItemHandle item)
{
    if (item == nullptr) return "null";
    for (const ScriptedMenuItem& each : Host().menuItems) {
        if (each.handle == item) return "item " + (each.key.empty() ? each.text : each.key);
    }
    return "unknown item";
}

AIMenuItemHandle NextItemHandle()
{
    if (Host().menuItemHandles.empty()) return NewHandleOf<AIMenuItemHandle>();
    const AIMenuItemHandle handle = Host().menuItemHandles.front();
    Host().menuItemHandles.pop_front();
    return handle;
}

AIErr AddNotifier(SPPluginRef self, const char* name, const char* type, AINotifierHandle* notifier)
{
    const std::string operation = "AINotifierSuite.AddNotifier";
    if (const AIErr code = Host().Record(operation, Quoted(name) + ", " + Quoted(type))) {
        return code;
    }
    *notifier = Host().GivesNull(operation) ? nullptr : NewHandleOf<AINotifierHandle>();
    Host().notifiers.push_back({self, name, type, *notifier});
    return kHostSuccess;
}

AIErr AddFileFormatEx(SPPluginRef self, const char* name, PlatformAddFileFormatExData* data,
                      int32_t options, AIFileFormatHandle* format, int32_t reserved)
{
    const std::string operation = "AIFileFormatSuite.AddFileFormatEx";
    if (const AIErr code = Host().Record(operation, Quoted(name) + ", " + std::to_string(options) +
                                                        ", " + std::to_string(reserved))) {
        return code;
    }
    if (*format != nullptr) (void)Host().Fault("the file format handle was not preset to null");
    if (Host().GivesNull(operation)) return kHostSuccess;
    *format = NewHandleOf<AIFileFormatHandle>();
    Host().fileFormats.push_back(
        {self, name, std::vector<int32_t>(data->typeList, data->typeList + data->numTypes),
         HostStringText(data->title), data->titleOrder, HostStringText(data->extensions), options,
         reserved, 0, *format});
    return kHostSuccess;
}

AIErr SetFileFormatPriority(AIFileFormatHandle format, int32_t priority)
{
    if (const AIErr code =
            Host().Record("AIFileFormatSuite.SetFileFormatPriority", std::to_string(priority))) {
        return code;
    }
    for (ScriptedFileFormat& each : Host().fileFormats) {
        if (each.handle == format) {
            each.priority = priority;
            return kHostSuccess;
        }
    }
    return Host().Fault("unknown file format");
}

AIErr AddTimer(SPPluginRef self, const char* name, int32_t period, AITimerHandle* timer)
{
    if (const AIErr code =
            Host().Record("AITimerSuite.AddTimer", Quoted(name) + ", " + std::to_string(period))) {
        return code;
    }
    *timer = NewHandleOf<AITimerHandle>();
    Host().timers.push_back({self, name, period, true, *timer});
    return kHostSuccess;
}

ScriptedTimer* Timer(AITimerHandle timer)
{
    for (ScriptedTimer& each : Host().timers) {
        if (each.handle == timer) return &each;
    }
    (void)Host().Fault("unknown timer");
    return nullptr;
}

AIErr GetTimerActive(AITimerHandle timer, bool* active)
{
    if (const AIErr code = Host().Record("AITimerSuite.GetTimerActive", "")) return code;
    const ScriptedTimer* const found = Timer(timer);
    if (found == nullptr) return kHostBadParameter;
    *active = found->active;
    return kHostSuccess;
}

AIErr SetTimerActive(AITimerHandle timer, bool active)
{
    if (const AIErr code =
            Host().Record("AITimerSuite.SetTimerActive", active ? "true" : "false")) {
        return code;
    }
    ScriptedTimer* const found = Timer(timer);
    if (found == nullptr) return kHostBadParameter;
    found->active = active;
    return kHostSuccess;
}

AIErr AddMenuItem(SPPluginRef self, const char* key, AIPlatformAddMenuItemDataUS* data,
                  int32_t options, AIMenuItemHandle* item)
{
    const std::string operation = "AIMenuSuite.AddMenuItem";
    const std::string text = HostStringText(data->itemText);
    if (const AIErr code =
            Host().Record(operation, Quoted(key) + ", " + Quoted(data->groupName) + ", " +
                                         Quoted(text.c_str()) + ", " + std::to_string(options))) {
        return code;
    }
    if (*item != nullptr) (void)Host().Fault("the menu item was not preset to null");
    if (Host().GivesNull(operation)) return kHostSuccess;
    const AIMenuItemHandle handle = NextItemHandle();
    *item = handle;
    Host().menuItems.push_back({self, key == nullptr ? "" : key, data->groupName, text, options,
                                true, false, false, handle, nullptr});
    return kHostSuccess;
}

AIErr Enable(const char* operation, AIMenuItemHandle item, bool enabled)
{
    if (const AIErr code = Host().Record(operation, NameOf(item))) return code;
    ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    found->enabled = enabled;
    return kHostSuccess;
}

AIErr EnableItem(AIMenuItemHandle item) { return Enable("AIMenuSuite.EnableItem", item, true); }

AIErr DisableItem(AIMenuItemHandle item) { return Enable("AIMenuSuite.DisableItem", item, false); }

AIErr GetItemText(AIMenuItemHandle item, ai::UnicodeString& text)
{
    if (const AIErr code = Host().Record("AIMenuSuite.GetItemText", NameOf(item))) return code;
    const ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    SetHostString(text, found->text);
    return kHostSuccess;
}

AIErr CheckItem(AIMenuItemHandle item, bool checked)
{
    if (const AIErr code = Host().Record("AIMenuSuite.CheckItem",
                                         NameOf(item) + (checked ? ", true" : ", false"))) {
        return code;
    }
    ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    found->checked = checked;
    return kHostSuccess;
}

AIErr GetMenuItemKeyboardShortcutDictionaryKey(AIMenuItemHandle item, const char** key)
{
    const std::string operation = "AIMenuSuite.GetMenuItemKeyboardShortcutDictionaryKey";
    if (const AIErr code = Host().Record(operation, NameOf(item))) return code;
    const ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    if (!Host().GivesNull(operation)) *key = found->key.c_str();
    return kHostSuccess;
}

AIErr CountMenuItems(int* count)
{
    if (const AIErr code = Host().Record("AIMenuSuite.CountMenuItems", "")) return code;
    *count = 0;
    for (const ScriptedMenuItem& each : Host().menuItems) *count += each.removed ? 0 : 1;
    return kHostSuccess;
}

AIErr GetNthMenuItem(int index, AIMenuItemHandle* item)
{
    if (const AIErr code = Host().Record("AIMenuSuite.GetNthMenuItem", std::to_string(index))) {
        return code;
    }
    int left = index;
    for (const ScriptedMenuItem& each : Host().menuItems) {
        if (each.removed || left-- > 0) continue;
        *item = each.handle;
        return kHostSuccess;
    }
    return kHostBadParameter;
}

AIErr AddMenuGroupAsSubMenu(const char* name, int32_t options, AIMenuItemHandle item,
                            AIMenuGroup* group)
{
    if (const AIErr code =
            Host().Record("AIMenuSuite.AddMenuGroupAsSubMenu",
                          Quoted(name) + ", " + std::to_string(options) + ", " + NameOf(item))) {
        return code;
    }
    if (*group != nullptr) (void)Host().Fault("the menu group was not preset to null");
    ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    found->submenu = NewHandleOf<AIMenuGroup>();
    Host().menuGroups.push_back({name, found->submenu});
    *group = found->submenu;
    return kHostSuccess;
}

AIErr GetItemSubMenuGroup(AIMenuItemHandle item, AIMenuGroup* group)
{
    if (const AIErr code = Host().Record("AIMenuSuite.GetItemSubMenuGroup", NameOf(item))) {
        return code;
    }
    const ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    if (*group != nullptr) (void)Host().Fault("the menu group was not preset to null");
    if (found->submenu != nullptr) *group = found->submenu;
    return kHostSuccess;
}

AIErr RemoveMenuItem(AIMenuItemHandle item)
{
    if (const AIErr code = Host().Record("AIMenuSuite.RemoveMenuItem", NameOf(item))) return code;
    ScriptedMenuItem* const found = Item(item);
    if (found == nullptr) return kHostBadParameter;
    found->removed = true;
    return kHostSuccess;
}

}  // namespace

AINotifierSuite* NotifierSuite()
{
    static AINotifierSuite suite = {AddNotifier};
    return &suite;
}

AIFileFormatSuite* FileFormatSuite()
{
    static AIFileFormatSuite suite = {AddFileFormatEx, SetFileFormatPriority};
    return &suite;
}

AITimerSuite* TimerSuite()
{
    static AITimerSuite suite = {AddTimer, GetTimerActive, SetTimerActive};
    return &suite;
}

AIMenuSuite* MenuSuite()
{
    static AIMenuSuite suite = {
        AddMenuItem,         EnableItem,     DisableItem,
        GetItemText,         CheckItem,      GetMenuItemKeyboardShortcutDictionaryKey,
        CountMenuItems,      GetNthMenuItem, AddMenuGroupAsSubMenu,
        GetItemSubMenuGroup, RemoveMenuItem};
    return &suite;
}
