#include "MenuFixture.h"

namespace {

class MenuItemTraces : public RunningMenuFixture {
protected:
    unsigned int AddWith(const char* id, const char* label, const char* title, bool checked,
                         bool enabled, const char* parent)
    {
        return AddIllustratorMenu(id, label, title, checked, enabled, false, parent, &mHelp);
    }
    std::string Context() const { return Low32(&mHelp); }
    // The end of the line about AddMenuItem.
    std::string End(const std::string& options, const void* item)
    {
        return ", options=" + options + ", pMenuItem=" + Low32(item);
    }
    std::string Beginning() { return "Calling AddMenuItem(SPPluginRef=" + Low32(host.Head().self); }

    MenuItemHelp mHelp;
};

TEST_F(MenuItemTraces, TracesTheArgumentsOnEntry)
{
    EXPECT_EQ(0U, AddWith("1", "Label", "Title", true, false, "Fonts"));
    EXPECT_EQ(1, Traces().front().indentChange);
    EXPECT_EQ(
        "Entering AddIllustratorMenu(id='1', label='Label', checked=1, enabled=0, "
        "parentID=Fonts, " +
            Context() + ")",
        Traces().front().text);
}

TEST_F(MenuItemTraces, TracesANullParentOnEntry)
{
    EXPECT_EQ(0U, AddWith("1", "Label", "Title", false, true, nullptr));
    EXPECT_EQ(
        "Entering AddIllustratorMenu(id='1', label='Label', checked=0, enabled=1, "
        "parentID=(null), " +
            Context() + ")",
        Traces().front().text);
}

TEST_F(MenuItemTraces, TracesNullTextsOnEntry)
{
    EXPECT_EQ(0U, AddWith(nullptr, nullptr, nullptr, false, true, "Fonts"));
    EXPECT_EQ(
        "Entering AddIllustratorMenu(id='(null)', label='(null)', checked=0, enabled=1, "
        "parentID=Fonts, " +
            Context() + ")",
        Traces().front().text);
}

TEST_F(MenuItemTraces, TracesTheExitLast)
{
    EXPECT_EQ(0U, AddWith("1", "Label", "Title", false, true, "Fonts"));
    EXPECT_EQ(-1, Traces().back().indentChange);
    EXPECT_NE(std::string::npos, Traces().back().text.find("AddIllustratorMenu"));
}

TEST_F(MenuItemTraces, TracesGroupTextAndItemOfTheCall)
{
    EXPECT_EQ(0U, AddWith("1", "Label", "Title", false, true, nullptr));
    EXPECT_TRUE(HasTrace(Beginning() +
                         ", itemKeyWithIllegalCharsRemoved='Label', "
                         "menuData.groupName='Type Plugins1', menuData.itemText='Title'" +
                         End("0x00000001", Item("Title").handle)));
}

TEST_F(MenuItemTraces, TracesTheOptionsOfASeparator)
{
    EXPECT_EQ(0U, AddWith("1", "Label", "", false, true, "Fonts"));
    EXPECT_TRUE(HasTrace(Beginning() +
                         ", itemKeyWithIllegalCharsRemoved='Label', menuData.groupName='Fonts', "
                         "menuData.itemText=''" +
                         End("0x00000004", Item("").handle)));
}

TEST_F(MenuItemTraces, TracesANullItemForAFailedCall)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, AddWith("1", "Label", "Title", false, true, "Fonts"));
    EXPECT_TRUE(HasTrace(Beginning() +
                         ", itemKeyWithIllegalCharsRemoved='Label', menuData.groupName='Fonts', "
                         "menuData.itemText='Title'" +
                         End("0x00000001", nullptr)));
    EXPECT_EQ(-1, Traces().back().indentChange);
}

TEST_F(MenuItemTraces, TracesTheCallAfterItAndBeforeTheSubmenu)
{
    bool tracedAtCall = false;
    bool tracedAtSubmenu = false;
    host.OnCall("AIMenuSuite.AddMenuItem",
                [&] { tracedAtCall = HasTraceBeginningWith("Calling AddMenuItem("); });
    host.OnCall("AIMenuSuite.AddMenuGroupAsSubMenu",
                [&] { tracedAtSubmenu = HasTraceBeginningWith("Calling AddMenuItem("); });
    EXPECT_EQ(0U, AddIllustratorMenu("1", "Label", "Title", false, true, true, "Fonts", &mHelp));
    EXPECT_FALSE(tracedAtCall);
    EXPECT_TRUE(tracedAtSubmenu);
}

TEST_F(MenuItemTraces, ReplacesSlashesInTheTraceOnly)
{
    EXPECT_EQ(0U, AddWith("1", "a/b/c", "Title", false, true, "Fonts"));
    std::vector<std::string> replaced;
    for (const std::string& text : TraceTexts()) {
        if (text.compare(0, 8, "Replaced") == 0) replaced.push_back(text);
    }
    EXPECT_THAT(replaced, ::testing::ElementsAre("Replaced char at position 1 to make 'a-b/c'",
                                                 "Replaced char at position 3 to make 'a-b-c'"));
    EXPECT_TRUE(HasTraceBeginningWith(Beginning() + ", itemKeyWithIllegalCharsRemoved='a/b/c'"));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.AddMenuItem((null), "));
}

TEST_F(MenuItemTraces, ReplacesSlashesOneByOneFromTheStart)
{
    EXPECT_EQ(0U, AddWith("1", "//", "Title", false, true, "Fonts"));
    EXPECT_TRUE(HasTrace("Replaced char at position 0 to make '-/'"));
    EXPECT_TRUE(HasTrace("Replaced char at position 1 to make '--'"));
}

TEST_F(MenuItemTraces, ReplacesNothingWithoutASlash)
{
    EXPECT_EQ(0U, AddWith("1", "a-b\\c", "Title", false, true, "Fonts"));
    EXPECT_FALSE(HasTraceBeginningWith("Replaced"));
}

TEST_F(MenuItemTraces, ReplacesNothingForARefusedItem)
{
    (void)AddForeignItem("a/b");
    EXPECT_EQ(CoreErrorCodes::kItemAlreadyExists,
              AddWith("1", "a/b", "Title", false, true, nullptr));
    EXPECT_FALSE(HasTraceBeginningWith("Replaced"));
    EXPECT_FALSE(HasTraceBeginningWith("Calling AddMenuItem("));
    EXPECT_EQ(-1, Traces().back().indentChange);
    EXPECT_NE(std::string::npos, Traces().back().text.find("AddIllustratorMenu"));
}

}  // namespace
