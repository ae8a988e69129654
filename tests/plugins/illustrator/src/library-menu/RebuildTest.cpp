#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class RebuildLibraries : public LibraryMenuFixture {};

TEST_F(RebuildLibraries, AddsTheNodesOfTheSubmenu)
{
    Rebuild(With(Libraries({"A", "B"})));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectIdsPassed();
}

TEST_F(RebuildLibraries, CallsTheHostInOrder)
{
    Rebuild(With(Libraries({"A", "B"})));
    Forget();
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetMenus", "GetMenus"));
    EXPECT_THAT(
        host.Calls("AIMenuSuite."),
        ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item Libraries)",
                    "AIMenuSuite.RemoveMenuItem(item A)", "AIMenuSuite.RemoveMenuItem(item B)",
                    "AIMenuSuite.AddMenuItem((null), \"Select Library\", \"C\", 1)"));
    EXPECT_EQ(1U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"));
}

TEST_F(RebuildLibraries, FetchesTheTextForTheDocumentBeforeItAsksTheHost)
{
    host.AddDocument("/a.ai");
    std::size_t asked = 0;
    host.OnCall("AIMenuSuite.GetItemSubMenuGroup", [&] { asked = core->calls.size(); });
    Rebuild(With({}));
    EXPECT_EQ(2U, asked);
    EXPECT_EQ("GetMenus(\"/a.ai\", null, 0)", core->calls.front());
}

TEST_F(RebuildLibraries, AddsMoreLibraries)
{
    Rebuild(With(Libraries({"A"})));
    Rebuild(With(Libraries({"A", "B", "C"})));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
    ExpectIdsPassed();
}

TEST_F(RebuildLibraries, RemovesLibraries)
{
    Rebuild(With(Libraries({"A", "B", "C"})));
    Rebuild(With(Libraries({"B"})));
    EXPECT_THAT(Submenu(), ElementsAre("B"));
    ExpectIdsPassed();
}

TEST_F(RebuildLibraries, KeepsTheEmptySubmenuWithoutLibraries)
{
    Rebuild(With(Libraries({"A", "B"})));
    Rebuild(With({}));
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
    EXPECT_NE(nullptr, Item("Libraries").submenu);
    EXPECT_EQ("\"libraries\"", IdPassedFor(Item("Libraries").handle));
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildLibraries, FillsAnEmptySubmenuAgain)
{
    Rebuild(With({}));
    Rebuild(With(Libraries({"A"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildLibraries, AddsTheSameItemsUnderNewHandles)
{
    Rebuild(With(Libraries({"A"})));
    const AIMenuItemHandle before = Item("A").handle;
    Rebuild(With(Libraries({"A"})));
    EXPECT_NE(before, Item("A").handle);
    EXPECT_EQ("\"\"", IdPassedFor(before));
    EXPECT_EQ("\"lib A\"", IdPassedFor(Item("A").handle));
}

TEST_F(RebuildLibraries, UpdateRefreshesOnlyTheNewItems)
{
    Rebuild(With(Libraries({"A"})));
    Rebuild(With(Libraries({"A"})));
    Forget();
    Update(With(Libraries({"A"})), "A");
    EXPECT_THAT(
        host.Calls("AIMenuSuite.EnableItem"),
        ElementsAre("AIMenuSuite.EnableItem(item Libraries)", "AIMenuSuite.EnableItem(item A)"));
}

TEST_F(RebuildLibraries, RemovesTheItemsAddedAtStartup)
{
    EXPECT_EQ(0U, Add("lib X", "X", "X", kSelectLibrary));
    EXPECT_EQ(0U, Add("lib Y", "Y", "Y", kSelectLibrary));
    Rebuild(With(Libraries({"A"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildLibraries, KeepsAllOtherItems)
{
    EXPECT_EQ(0U, Add("1", "One", "One", nullptr));
    EXPECT_EQ(0U, Add("2", "Two", "Two", "One"));
    Rebuild(With(Libraries({"A"})));
    Rebuild(With({}));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries", "One", "Two"));
    EXPECT_EQ("\"2\"", IdPassedFor(Item("Two").handle));
}

TEST_F(RebuildLibraries, TracesTheStateWithoutSettingIt)
{
    json chosen = Node("lib A", "A");
    chosen["checked"] = true;
    chosen["enabled"] = false;
    Rebuild(With({chosen}));
    EXPECT_TRUE(HasTraceBeginningWith(
        "Entering AddIllustratorMenu(id='lib A', label='lib A', checked=1, enabled=0, "
        "parentID=Select Library, 0x"));
    EXPECT_FALSE(Item("A").checked);
    EXPECT_TRUE(Item("A").enabled);
    Update(With({chosen}), "A");
    EXPECT_TRUE(Item("A").checked);
    EXPECT_FALSE(Item("A").enabled);
}

TEST_F(RebuildLibraries, DoesNotChangeTheLastKnownState)
{
    Update(With({}), "Libraries");
    const std::string before = core->menus;
    Rebuild(With(Libraries({"A"})));
    EXPECT_EQ(0, SendGo(Item("A").handle));
    EXPECT_EQ("HandleMenuSelection(\"\", \"" + before + "\", \"lib A\", \"\")", LastSelection());
}

TEST_F(RebuildLibraries, AddsNoSubmenusAndNoChildren)
{
    Rebuild(With({Node("lib A", "A", {Node("inner", "Inner")})}));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"));
}

TEST_F(RebuildLibraries, DoesNotSearchTheHostsItems)
{
    (void)AddForeignItem("lib A");
    Rebuild(With(Libraries({"A"})));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.CountMenuItems"));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildLibraries, TracesEntryAndExit)
{
    Rebuild(With({}));
    EXPECT_EQ(1, Traces().front().indentChange);
    EXPECT_THAT(Traces().front().text, HasSubstr("RebuildWorkgroupsMenu"));
    EXPECT_EQ(-1, Traces().back().indentChange);
    EXPECT_THAT(Traces().back().text, HasSubstr("RebuildWorkgroupsMenu"));
}

}  // namespace
