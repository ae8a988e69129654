#include "session/MenuTree.h"

#include <algorithm>

#include "console/Console.h"

namespace headless {

namespace {

constexpr int32_t kSeparator = 4;  // option bit of a menu item

// The name of the group that the item opens; empty if it opens none.
std::string GetSubmenu(const Host& host, const MenuItemObject& item)
{
    const auto* const group = host.handles.Peek<MenuGroupObject>(item.submenu);
    return group == nullptr ? std::string() : group->name;
}

// Walks the groups depth first and collects their items.
class MenuFlattener {
public:
    explicit MenuFlattener(const Host& host) : mHost(host) {}

    std::vector<MenuEntry> List()
    {
        std::vector<std::string> groups;
        for (void* const handle : mHost.menuItems) {
            const std::string& group = mHost.handles.Peek<MenuItemObject>(handle)->group;
            const bool isKnown = std::find(groups.begin(), groups.end(), group) != groups.end();
            if (!isKnown && !IsSubmenu(group)) groups.push_back(group);
        }
        for (const std::string& group : groups) Add(group, group, "", 0);
        return std::move(mEntries);
    }

private:
    bool IsSubmenu(const std::string& group) const
    {
        const auto& items = mHost.menuItems;
        return std::any_of(items.begin(), items.end(), [&](void* handle) {
            const auto* const item = mHost.handles.Peek<MenuItemObject>(handle);
            return item->submenu != nullptr && GetSubmenu(mHost, *item) == group;
        });
    }

    void Add(const std::string& group, const std::string& top, const std::string& above,
             size_t depth)
    {
        constexpr size_t kDeepest = 32;  // ends groups that contain each other
        if (depth > kDeepest) return;
        for (void* const handle : mHost.menuItems) {
            const auto* const item = mHost.handles.Peek<MenuItemObject>(handle);
            if (item->group != group) continue;
            mEntries.push_back({handle, item, depth, above + item->text, top});
            const std::string submenu = GetSubmenu(mHost, *item);
            if (!submenu.empty()) Add(submenu, top, above + item->text + "/", depth + 1);
        }
    }

    const Host& mHost;
    std::vector<MenuEntry> mEntries;
};

}  // namespace

std::vector<MenuEntry> ListMenus(const Host& host) { return MenuFlattener(host).List(); }

MenuEntry FindMenuItem(const Host& host, const std::string& label)
{
    MenuEntry found;
    for (const MenuEntry& entry : ListMenus(host)) {
        if (IsSeparator(*entry.item)) continue;
        if (entry.path == label) return entry;
        if (found.item == nullptr && entry.item->text == label) found = entry;
    }
    return found;
}

bool IsSeparator(const MenuItemObject& item) { return (item.options & kSeparator) != 0; }

std::string DrawMenus(const Host& host)
{
    std::string text;
    std::string group;
    for (const MenuEntry& entry : ListMenus(host)) {
        if (text.empty() || entry.topGroup != group) {
            group = entry.topGroup;
            text += console::MakePrintable(group) + "\n";
        }
        text += std::string(4 * entry.depth + 2, ' ');
        if (IsSeparator(*entry.item)) {
            text += "    --------\n";
            continue;
        }
        text += entry.item->isChecked ? "[x] " : "    ";
        text += console::MakePrintable(entry.item->text);
        if (entry.item->submenu != nullptr) text += " >";
        if (!entry.item->isEnabled) text += "  (disabled)";
        text += "\n";
    }
    return text.empty() ? "no menus\n" : text;
}

}  // namespace headless
