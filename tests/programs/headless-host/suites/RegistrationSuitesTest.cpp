#include <cstring>

#include "HostFixture.h"

class RegistrationSuites : public HostFixture {
protected:
    RegistrationSuites()
    {
        host->plugin = host->handles.Issue(
            std::make_shared<headless::PluginObject>(headless::PluginObject{"plug-in"}));
        self = static_cast<SPPluginRef>(host->plugin);
    }

    AIMenuItemHandle AddItem(const char* key, const char* text)
    {
        struct {
            const char* groupName;
            void* itemText;
        } data = {"Group", nullptr};
        auto& string = reinterpret_cast<ai::UnicodeString&>(data.itemText);
        AIMenuItemHandle item = nullptr;
        EXPECT_EQ(strings.Initialize(&string, text, std::strlen(text), kAIUTF8CharacterEncoding),
                  kHostSuccess);
        EXPECT_EQ(menus.AddMenuItem(
                      self, key, reinterpret_cast<AIPlatformAddMenuItemDataUS*>(&data), 1, &item),
                  kHostSuccess);
        EXPECT_EQ(strings.Destroy(&string), kHostSuccess);
        return item;
    }

    const AIMenuSuite& menus = Acquire<AIMenuSuite>("AI Menu Suite", 1011);
    const AITimerSuite& timers = Acquire<AITimerSuite>("AI Timer Suite", 1005);
    const AIUnicodeStringSuite& strings =
        Acquire<AIUnicodeStringSuite>("AI Unicode String Suite", 1008);
    SPPluginRef self = nullptr;
};

TEST_F(RegistrationSuites, TimersAreActiveUntilStopped)
{
    AITimerHandle timer = nullptr;
    bool active = false;
    ASSERT_EQ(timers.AddTimer(self, "tick", 1, &timer), kHostSuccess);
    ASSERT_EQ(timers.GetTimerActive(timer, &active), kHostSuccess);
    EXPECT_TRUE(active);
    ASSERT_EQ(timers.SetTimerActive(timer, false), kHostSuccess);
    ASSERT_EQ(timers.GetTimerActive(timer, &active), kHostSuccess);
    EXPECT_FALSE(active);
}

TEST_F(RegistrationSuites, AStrangerMayNotAddATimer)
{
    AITimerHandle timer = nullptr;
    EXPECT_NE(timers.AddTimer(nullptr, "tick", 1, &timer), kHostSuccess);
    EXPECT_THAT(host->violations.Lines(),
                testing::ElementsAre("AI Timer Suite, AddTimer: the plug-in is null"));
}

TEST_F(RegistrationSuites, MenuItemsKeepWhatTheyAreGiven)
{
    const AIMenuItemHandle item = AddItem("key", "Text");
    const auto* const object = host->handles.Peek<headless::MenuItemObject>(item);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->text, "Text");
    EXPECT_EQ(object->group, "Group");
    EXPECT_EQ(object->options, 1);
    EXPECT_EQ(menus.CheckItem(item, true), kHostSuccess);
    EXPECT_EQ(menus.DisableItem(item), kHostSuccess);
    EXPECT_TRUE(object->isChecked);
    EXPECT_FALSE(object->isEnabled);
    const char* key = nullptr;
    ASSERT_EQ(menus.GetMenuItemKeyboardShortcutDictionaryKey(item, &key), kHostSuccess);
    EXPECT_STREQ(key, "key");
    EXPECT_TRUE(host->violations.Lines().empty());
}

TEST_F(RegistrationSuites, ARemovedItemIsGone)
{
    const AIMenuItemHandle first = AddItem("a", "A");
    const AIMenuItemHandle second = AddItem("b", "B");
    int count = 0;
    AIMenuItemHandle found = nullptr;
    ASSERT_EQ(menus.RemoveMenuItem(first), kHostSuccess);
    ASSERT_EQ(menus.CountMenuItems(&count), kHostSuccess);
    EXPECT_EQ(count, 1);
    ASSERT_EQ(menus.GetNthMenuItem(0, &found), kHostSuccess);
    EXPECT_EQ(found, second);
    EXPECT_NE(menus.EnableItem(first), kHostSuccess);
    EXPECT_EQ(host->violations.Count(), 1u);
}

TEST_F(RegistrationSuites, ASubmenuIsAGroupOfTheItem)
{
    const AIMenuItemHandle item = AddItem("a", "A");
    int untouched = 0;
    auto* const before = reinterpret_cast<AIMenuGroup>(&untouched);
    AIMenuGroup group = before;
    ASSERT_EQ(menus.GetItemSubMenuGroup(item, &group), kHostSuccess);
    EXPECT_EQ(group, before) << "an item without a submenu leaves it as it was";
    AIMenuGroup made = nullptr;
    ASSERT_EQ(menus.AddMenuGroupAsSubMenu("sub", 0, item, &made), kHostSuccess);
    ASSERT_EQ(menus.GetItemSubMenuGroup(item, &group), kHostSuccess);
    EXPECT_EQ(group, made);
}
