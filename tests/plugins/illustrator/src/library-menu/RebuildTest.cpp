#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class RebuildLibraries : public LibraryMenuTest {};

TEST_F(RebuildLibraries, NodesOfTheSubmenuAreAdded)
{
    Rebuild(With(Libraries({"A", "B"})));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectIdsPassed();
}

TEST_F(RebuildLibraries, CallsComeInOrder)
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
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"), 1U);
}

TEST_F(RebuildLibraries, TextIsFetchedForTheDocumentBeforeTheHostIsAsked)
{
    host.AddDocument("/a.ai");
    std::size_t asked = 0;
    host.OnCall("AIMenuSuite.GetItemSubMenuGroup", [&] { asked = core->calls.size(); });
    Rebuild(With({}));
    EXPECT_EQ(asked, 2U);
    EXPECT_EQ(core->calls.front(), "GetMenus(\"/a.ai\", null, 0)");
}

TEST_F(RebuildLibraries, MoreLibraries)
{
    Rebuild(With(Libraries({"A"})));
    Rebuild(With(Libraries({"A", "B", "C"})));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
    ExpectIdsPassed();
}

TEST_F(RebuildLibraries, FewerLibraries)
{
    Rebuild(With(Libraries({"A", "B", "C"})));
    Rebuild(With(Libraries({"B"})));
    EXPECT_THAT(Submenu(), ElementsAre("B"));
    ExpectIdsPassed();
}

TEST_F(RebuildLibraries, NoLibrariesLeaveTheSubmenuEmptyAndInPlace)
{
    Rebuild(With(Libraries({"A", "B"})));
    Rebuild(With({}));
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
    EXPECT_NE(Item("Libraries").submenu, nullptr);
    EXPECT_EQ(IdPassedFor(Item("Libraries").handle), "\"libraries\"");
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildLibraries, AndAgainAfterNoLibraries)
{
    Rebuild(With({}));
    Rebuild(With(Libraries({"A"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildLibraries, SameTextGivesTheSameItemsUnderNewHandles)
{
    Rebuild(With(Libraries({"A"})));
    const AIMenuItemHandle before = Item("A").handle;
    Rebuild(With(Libraries({"A"})));
    EXPECT_NE(Item("A").handle, before);
    EXPECT_EQ(IdPassedFor(before), "\"\"");
    EXPECT_EQ(IdPassedFor(Item("A").handle), "\"lib A\"");
}

TEST_F(RebuildLibraries, UpdateReachesTheNewItemsAlone)
{
    Rebuild(With(Libraries({"A"})));
    Rebuild(With(Libraries({"A"})));
    Forget();
    Update(With(Libraries({"A"})), "A");
    EXPECT_THAT(
        host.Calls("AIMenuSuite.EnableItem"),
        ElementsAre("AIMenuSuite.EnableItem(item Libraries)", "AIMenuSuite.EnableItem(item A)"));
}

TEST_F(RebuildLibraries, ItemsFromTheStartAreTakenOutToo)
{
    EXPECT_EQ(Add("lib X", "X", "X", kLibraryLabel), 0U);
    EXPECT_EQ(Add("lib Y", "Y", "Y", kLibraryLabel), 0U);
    Rebuild(With(Libraries({"A"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildLibraries, OtherItemsStay)
{
    EXPECT_EQ(Add("1", "One", "One", nullptr), 0U);
    EXPECT_EQ(Add("2", "Two", "Two", "One"), 0U);
    Rebuild(With(Libraries({"A"})));
    Rebuild(With({}));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries", "One", "Two"));
    EXPECT_EQ(IdPassedFor(Item("Two").handle), "\"2\"");
}

TEST_F(RebuildLibraries, StateIsTracedAndNotSet)
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

TEST_F(RebuildLibraries, LastKnownStateIsNotTouched)
{
    Update(With({}), "Libraries");
    const std::string before = core->menus;
    Rebuild(With(Libraries({"A"})));
    EXPECT_EQ(SendGo(Item("A").handle), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"" + before + "\", \"lib A\", \"\")");
}

TEST_F(RebuildLibraries, ItemsGetNoSubmenuAndTheirChildrenAreLeftOut)
{
    Rebuild(With({Node("lib A", "A", {Node("inner", "Inner")})}));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"), 0U);
}

TEST_F(RebuildLibraries, AreNotLookedForAmongTheHostsItems)
{
    (void)AddForeignItem("lib A");
    Rebuild(With(Libraries({"A"})));
    EXPECT_EQ(host.CountCalls("AIMenuSuite.CountMenuItems"), 0U);
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildLibraries, EntryAndExitAreTraced)
{
    Rebuild(With({}));
    EXPECT_EQ(Traces().front().indentChange, 1);
    EXPECT_THAT(Traces().front().text, HasSubstr("RebuildWorkgroupsMenu"));
    EXPECT_EQ(Traces().back().indentChange, -1);
    EXPECT_THAT(Traces().back().text, HasSubstr("RebuildWorkgroupsMenu"));
}

}  // namespace
