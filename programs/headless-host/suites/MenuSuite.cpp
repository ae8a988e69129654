#include <algorithm>

#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"

namespace headless {

namespace {

const SuiteRow& kMenuSuite = *FindSuiteRow("AI Menu Suite");

// Runs an operation on one item. `body` gets the call and the item.
template <class Body>
AIErr WithItem(const char* operation, AIMenuItemHandle item, Body body)
{
    return Answer(kMenuSuite, operation, [&](SuiteCall& call) {
        call.Handle("item", item);
        auto* const object = call.Find<MenuItemObject>(item);
        return object == nullptr ? kHostBadParameter : body(call, *object);
    });
}

AIErr AddMenuItem(SPPluginRef self, const char* key, AIPlatformAddMenuItemDataUS* data,
                  int32_t options, AIMenuItemHandle* item)
{
    return Answer(kMenuSuite, "AddMenuItem", [&](SuiteCall& call) {
        if (call.Find<PluginObject>(self) == nullptr || !call.Require(data, "data") ||
            !call.Require(data->groupName, "groupName") || !call.Require(item, "item")) {
            return kHostBadParameter;
        }
        MenuItemObject object;
        // The key is optional.
        if (key != nullptr) object.key = key;
        object.group = data->groupName;
        object.options = options;
        if (GetHandle(data->itemText) != nullptr) {
            const auto* const text = call.Find<StringObject>(GetHandle(data->itemText));
            if (text == nullptr) return kHostBadParameter;
            object.text = text->text;
        }
        call.Arg("key", object.key);
        call.Arg("group", object.group);
        call.Arg("text", object.text);
        call.Arg("options", options);
        void* const handle =
            call.host.handles.Issue(std::make_shared<MenuItemObject>(std::move(object)));
        call.host.menuItems.push_back(handle);
        ++call.host.menuChanges;
        *item = static_cast<AIMenuItemHandle>(handle);
        call.OutHandle("item", *item);
        return kHostSuccess;
    });
}

AIErr EnableItem(AIMenuItemHandle item)
{
    return WithItem("EnableItem", item, [](SuiteCall&, MenuItemObject& object) {
        object.isEnabled = true;
        return kHostSuccess;
    });
}

AIErr DisableItem(AIMenuItemHandle item)
{
    return WithItem("DisableItem", item, [](SuiteCall&, MenuItemObject& object) {
        object.isEnabled = false;
        return kHostSuccess;
    });
}

AIErr GetItemText(AIMenuItemHandle item, ai::UnicodeString& text)
{
    return WithItem("GetItemText", item, [&](SuiteCall& call, const MenuItemObject& object) {
        PutString(call, text, object.text);
        call.Out("text", object.text);
        return kHostSuccess;
    });
}

AIErr CheckItem(AIMenuItemHandle item, bool checked)
{
    return WithItem("CheckItem", item, [&](SuiteCall& call, MenuItemObject& object) {
        call.Arg("checked", checked);
        object.isChecked = checked;
        return kHostSuccess;
    });
}

// The item owns the text.
AIErr GetMenuItemKeyboardShortcutDictionaryKey(AIMenuItemHandle item, const char** key)
{
    return WithItem("GetMenuItemKeyboardShortcutDictionaryKey", item,
                    [&](SuiteCall& call, const MenuItemObject& object) {
                        if (!call.Require(key, "key")) return kHostBadParameter;
                        *key = object.key.c_str();
                        call.Out("key", object.key);
                        return kHostSuccess;
                    });
}

AIErr CountMenuItems(int* count)
{
    return Answer(kMenuSuite, "CountMenuItems", [&](SuiteCall& call) {
        if (!call.Require(count, "count")) return kHostBadParameter;
        *count = static_cast<int>(call.host.menuItems.size());
        call.Out("count", *count);
        return kHostSuccess;
    });
}

AIErr GetNthMenuItem(int index, AIMenuItemHandle* item)
{
    return Answer(kMenuSuite, "GetNthMenuItem", [&](SuiteCall& call) {
        call.Arg("index", index);
        if (!call.Require(item, "item")) return kHostBadParameter;
        if (index < 0 || static_cast<size_t>(index) >= call.host.menuItems.size()) {
            return call.Refuse(kOutOfRange, "there is no item " + std::to_string(index));
        }
        *item = static_cast<AIMenuItemHandle>(call.host.menuItems[static_cast<size_t>(index)]);
        call.OutHandle("item", *item);
        return kHostSuccess;
    });
}

AIErr AddMenuGroupAsSubMenu(const char* name, int32_t options, AIMenuItemHandle item,
                            AIMenuGroup* group)
{
    return WithItem("AddMenuGroupAsSubMenu", item, [&](SuiteCall& call, MenuItemObject& object) {
        if (!call.Require(name, "name") || !call.Require(group, "group")) return kHostBadParameter;
        call.Arg("name", std::string(name));
        call.Arg("options", options);
        object.submenu =
            call.host.handles.Issue(std::make_shared<MenuGroupObject>(MenuGroupObject{name}));
        call.host.menuGroups.push_back(object.submenu);
        ++call.host.menuChanges;
        *group = static_cast<AIMenuGroup>(object.submenu);
        call.OutHandle("group", *group);
        return kHostSuccess;
    });
}

AIErr GetItemSubMenuGroup(AIMenuItemHandle item, AIMenuGroup* group)
{
    return WithItem("GetItemSubMenuGroup", item,
                    [&](SuiteCall& call, const MenuItemObject& object) {
                        if (!call.Require(group, "group")) return kHostBadParameter;
                        if (object.submenu != nullptr) {
                            *group = static_cast<AIMenuGroup>(object.submenu);
                        }
                        call.OutHandle("group", object.submenu);
                        return kHostSuccess;
                    });
}

AIErr RemoveMenuItem(AIMenuItemHandle item)
{
    return WithItem("RemoveMenuItem", item, [&](SuiteCall& call, MenuItemObject&) {
        std::vector<void*>& items = call.host.menuItems;
        items.erase(std::remove(items.begin(), items.end(), item), items.end());
        call.host.handles.Expire(item);
        ++call.host.menuChanges;
        return kHostSuccess;
    });
}

}  // namespace

const AIMenuSuite kMenuTable = {
    AddMenuItem,         EnableItem,     DisableItem,
    GetItemText,         CheckItem,      GetMenuItemKeyboardShortcutDictionaryKey,
    CountMenuItems,      GetNthMenuItem, AddMenuGroupAsSubMenu,
    GetItemSubMenuGroup, RemoveMenuItem};

}  // namespace headless
