#include "MenuFixture.h"

namespace {

class MenuItemTraces : public RunningMenuTest {
protected:
    unsigned int AddWith(const char* id, const char* label, const char* title, bool checked,
                         bool enabled, const char* parent)
    {
        return AddIllustratorMenu(id, label, title, checked, enabled, false, parent, &mHelp);
    }
    std::string Context() const { return Low32(&mHelp); }
    // How the line of the host's call ends.
    std::string End(const std::string& options, const void* item)
    {
        return ", options=" + options + ", pMenuItem=" + Low32(item);
    }
    std::string Beginning() { return "Calling AddMenuItem(SPPluginRef=" + Low32(host.Head().self); }

    MenuItemHelp mHelp;
};

TEST_F(MenuItemTraces, EntryTellsTheArguments)
{
    EXPECT_EQ(AddWith("1", "Label", "Title", true, false, "Fonts"), 0U);
    EXPECT_EQ(Traces().front().indentChange, 1);
    EXPECT_EQ(Traces().front().text,
              "Entering AddIllustratorMenu(id='1', label='Label', checked=1, enabled=0, "
              "parentID=Fonts, " +
                  Context() + ")");
}

TEST_F(MenuItemTraces, EntryTellsTheParentAsItCame)
{
    EXPECT_EQ(AddWith("1", "Label", "Title", false, true, nullptr), 0U);
    EXPECT_EQ(Traces().front().text,
              "Entering AddIllustratorMenu(id='1', label='Label', checked=0, enabled=1, "
              "parentID=(null), " +
                  Context() + ")");
}

TEST_F(MenuItemTraces, NullTextsAreTold)
{
    EXPECT_EQ(AddWith(nullptr, nullptr, nullptr, false, true, "Fonts"), 0U);
    EXPECT_EQ(Traces().front().text,
              "Entering AddIllustratorMenu(id='(null)', label='(null)', checked=0, enabled=1, "
              "parentID=Fonts, " +
                  Context() + ")");
}

TEST_F(MenuItemTraces, ExitIsTheLastLine)
{
    EXPECT_EQ(AddWith("1", "Label", "Title", false, true, "Fonts"), 0U);
    EXPECT_EQ(Traces().back().indentChange, -1);
    EXPECT_NE(Traces().back().text.find("AddIllustratorMenu"), std::string::npos);
}

TEST_F(MenuItemTraces, CallIsToldWithItsGroupTextAndItem)
{
    EXPECT_EQ(AddWith("1", "Label", "Title", false, true, nullptr), 0U);
    EXPECT_TRUE(HasTrace(Beginning() +
                         ", itemKeyWithIllegalCharsRemoved='Label', "
                         "menuData.groupName='Type Plugins1', menuData.itemText='Title'" +
                         End("0x00000001", Item("Title").handle)));
}

TEST_F(MenuItemTraces, CallOfASeparatorIsToldWithItsOptions)
{
    EXPECT_EQ(AddWith("1", "Label", "", false, true, "Fonts"), 0U);
    EXPECT_TRUE(HasTrace(Beginning() +
                         ", itemKeyWithIllegalCharsRemoved='Label', menuData.groupName='Fonts', "
                         "menuData.itemText=''" +
                         End("0x00000004", Item("").handle)));
}

TEST_F(MenuItemTraces, CallThatFailedIsToldWithANullItem)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(AddWith("1", "Label", "Title", false, true, "Fonts"), 4711U);
    EXPECT_TRUE(HasTrace(Beginning() +
                         ", itemKeyWithIllegalCharsRemoved='Label', menuData.groupName='Fonts', "
                         "menuData.itemText='Title'" +
                         End("0x00000001", nullptr)));
    EXPECT_EQ(Traces().back().indentChange, -1);
}

TEST_F(MenuItemTraces, CallIsToldAfterItIsMadeAndBeforeTheSubmenu)
{
    bool toldAtCall = false;
    bool toldAtSubmenu = false;
    host.OnCall("AIMenuSuite.AddMenuItem",
                [&] { toldAtCall = HasTraceBeginningWith("Calling AddMenuItem("); });
    host.OnCall("AIMenuSuite.AddMenuGroupAsSubMenu",
                [&] { toldAtSubmenu = HasTraceBeginningWith("Calling AddMenuItem("); });
    EXPECT_EQ(AddIllustratorMenu("1", "Label", "Title", false, true, true, "Fonts", &mHelp), 0U);
    EXPECT_FALSE(toldAtCall);
    EXPECT_TRUE(toldAtSubmenu);
}

TEST_F(MenuItemTraces, EachSlashIsReplacedInTheLogAlone)
{
    EXPECT_EQ(AddWith("1", "a/b/c", "Title", false, true, "Fonts"), 0U);
    std::vector<std::string> replaced;
    for (const std::string& text : TraceTexts()) {
        if (text.compare(0, 8, "Replaced") == 0) replaced.push_back(text);
    }
    EXPECT_THAT(replaced, ::testing::ElementsAre("Replaced char at position 1 to make 'a-b/c'",
                                                 "Replaced char at position 3 to make 'a-b-c'"));
    EXPECT_TRUE(HasTraceBeginningWith(Beginning() + ", itemKeyWithIllegalCharsRemoved='a/b/c'"));
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuItem((null), "), 1U);
}

TEST_F(MenuItemTraces, SlashesAreReplacedOneByOneFromTheStart)
{
    EXPECT_EQ(AddWith("1", "//", "Title", false, true, "Fonts"), 0U);
    EXPECT_TRUE(HasTrace("Replaced char at position 0 to make '-/'"));
    EXPECT_TRUE(HasTrace("Replaced char at position 1 to make '--'"));
}

TEST_F(MenuItemTraces, WithoutASlashNothingIsReplaced)
{
    EXPECT_EQ(AddWith("1", "a-b\\c", "Title", false, true, "Fonts"), 0U);
    EXPECT_FALSE(HasTraceBeginningWith("Replaced"));
}

TEST_F(MenuItemTraces, RefusedItemLeavesWithoutReplacing)
{
    (void)AddForeignItem("a/b");
    EXPECT_EQ(AddWith("1", "a/b", "Title", false, true, nullptr), 0x09000000U);
    EXPECT_FALSE(HasTraceBeginningWith("Replaced"));
    EXPECT_FALSE(HasTraceBeginningWith("Calling AddMenuItem("));
    EXPECT_EQ(Traces().back().indentChange, -1);
    EXPECT_NE(Traces().back().text.find("AddIllustratorMenu"), std::string::npos);
}

}  // namespace
