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
        EXPECT_EQ(kHostSuccess,
                  strings.Initialize(&string, text, std::strlen(text), kAIUTF8CharacterEncoding));
        EXPECT_EQ(kHostSuccess,
                  menus.AddMenuItem(
                      self, key, reinterpret_cast<AIPlatformAddMenuItemDataUS*>(&data), 1, &item));
        EXPECT_EQ(kHostSuccess, strings.Destroy(&string));
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
    ASSERT_EQ(kHostSuccess, timers.AddTimer(self, "tick", 1, &timer));
    ASSERT_EQ(kHostSuccess, timers.GetTimerActive(timer, &active));
    EXPECT_TRUE(active);
    ASSERT_EQ(kHostSuccess, timers.SetTimerActive(timer, false));
    ASSERT_EQ(kHostSuccess, timers.GetTimerActive(timer, &active));
    EXPECT_FALSE(active);
}

TEST_F(RegistrationSuites, AddTimerNeedsThePluginsOwnHandle)
{
    AITimerHandle timer = nullptr;
    EXPECT_NE(kHostSuccess, timers.AddTimer(nullptr, "tick", 1, &timer));
    EXPECT_THAT(host->violations.Lines(),
                testing::ElementsAre("AI Timer Suite, AddTimer: the plug-in is null"));
}

TEST_F(RegistrationSuites, MenuItemsStoreTheirAttributes)
{
    const AIMenuItemHandle item = AddItem("key", "Text");
    const auto* const object = host->handles.Peek<headless::MenuItemObject>(item);
    ASSERT_NE(nullptr, object);
    EXPECT_EQ("Text", object->text);
    EXPECT_EQ("Group", object->group);
    EXPECT_EQ(1, object->options);
    EXPECT_EQ(kHostSuccess, menus.CheckItem(item, true));
    EXPECT_EQ(kHostSuccess, menus.DisableItem(item));
    EXPECT_TRUE(object->isChecked);
    EXPECT_FALSE(object->isEnabled);
    const char* key = nullptr;
    ASSERT_EQ(kHostSuccess, menus.GetMenuItemKeyboardShortcutDictionaryKey(item, &key));
    EXPECT_STREQ("key", key);
    EXPECT_TRUE(host->violations.Lines().empty());
}

TEST_F(RegistrationSuites, ARemovedItemIsNotListedAndExpires)
{
    const AIMenuItemHandle first = AddItem("a", "A");
    const AIMenuItemHandle second = AddItem("b", "B");
    int count = 0;
    AIMenuItemHandle found = nullptr;
    ASSERT_EQ(kHostSuccess, menus.RemoveMenuItem(first));
    ASSERT_EQ(kHostSuccess, menus.CountMenuItems(&count));
    EXPECT_EQ(1, count);
    ASSERT_EQ(kHostSuccess, menus.GetNthMenuItem(0, &found));
    EXPECT_EQ(second, found);
    EXPECT_NE(kHostSuccess, menus.EnableItem(first));
    EXPECT_EQ(1U, host->violations.Count());
}

TEST_F(RegistrationSuites, AFailureOfAnOperationIsReturnedOnceAndChangesNothing)
{
    const AIMenuItemHandle item = AddItem("a", "A");
    host->failures["RemoveMenuItem"] = 77;
    int count = 0;
    EXPECT_EQ(kHostSuccess, menus.CheckItem(item, true)) << "another operation";
    EXPECT_EQ(77, menus.RemoveMenuItem(item));
    ASSERT_EQ(kHostSuccess, menus.CountMenuItems(&count));
    EXPECT_EQ(1, count);
    EXPECT_EQ(kHostSuccess, menus.RemoveMenuItem(item));
    ASSERT_EQ(kHostSuccess, menus.CountMenuItems(&count));
    EXPECT_EQ(0, count);
    EXPECT_TRUE(host->violations.Lines().empty());
}

TEST_F(RegistrationSuites, AddMenuGroupAsSubMenuGivesTheItemAGroup)
{
    const AIMenuItemHandle item = AddItem("a", "A");
    int untouched = 0;
    auto* const before = reinterpret_cast<AIMenuGroup>(&untouched);
    AIMenuGroup group = before;
    ASSERT_EQ(kHostSuccess, menus.GetItemSubMenuGroup(item, &group));
    EXPECT_EQ(before, group) << "unchanged for an item without a submenu";
    AIMenuGroup made = nullptr;
    ASSERT_EQ(kHostSuccess, menus.AddMenuGroupAsSubMenu("sub", 0, item, &made));
    ASSERT_EQ(kHostSuccess, menus.GetItemSubMenuGroup(item, &group));
    EXPECT_EQ(made, group);
}
