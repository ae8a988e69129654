#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AddMenuItem : public RunningMenuFixture {};

TEST_F(AddMenuItem, AddsATopLevelItemToThePluginsGroup)
{
    EXPECT_EQ(0U, Add("1", "Label", "Title", nullptr));
    EXPECT_THAT(host.Calls("AIMenuSuite.Add"),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Type Plugins1\", \"Title\", 1)"));
}

TEST_F(AddMenuItem, AddsAChildToTheGroupOfItsParent)
{
    EXPECT_EQ(0U, Add("1", "Label", "Title", "Fonts"));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"Title\", 1)"));
}

TEST_F(AddMenuItem, AddsTheItemForThePlugin)
{
    EXPECT_EQ(0U, Add("1", "Label", "Title"));
    EXPECT_EQ(host.Head().self, Item("Title").self);
}

TEST_F(AddMenuItem, ConvertsTheTitleFromUTF8AndReleasesIt)
{
    EXPECT_EQ(0U, Add("1", "Label", "Schrift \xC3\xBC"));
    EXPECT_THAT(host.Calls("AIUnicodeStringSuite."),
                ElementsAre("AIUnicodeStringSuite.Initialize(\"Schrift \xC3\xBC\", 10, 1)",
                            "AIUnicodeStringSuite.Destroy()"));
    EXPECT_EQ(0U, host.LiveStrings());
}

TEST_F(AddMenuItem, EmptyTitleMakesASeparator)
{
    EXPECT_EQ(0U, Add("1", "Label", "", "Fonts"));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"\", 4)"));
    EXPECT_EQ(0U, host.CountCalls("AIUnicodeStringSuite.Initialize"));
}

TEST_F(AddMenuItem, NullTitleMakesASeparator)
{
    EXPECT_EQ(0U, Add("1", "Label", nullptr, "Fonts"));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"\", 4)"));
}

TEST_F(AddMenuItem, StoresTheIdForTheCommand)
{
    EXPECT_EQ(0U, Add("the id", "Label", "Title"));
    EXPECT_EQ("\"the id\"", IdPassedFor(Item("Title").handle));
}

TEST_F(AddMenuItem, StoresTheIdOfASeparatorToo)
{
    EXPECT_EQ(0U, Add("line", "Label", ""));
    EXPECT_EQ("\"line\"", IdPassedFor(Item("").handle));
}

TEST_F(AddMenuItem, StoresANullIdAsAnEmptyOne)
{
    EXPECT_EQ(0U, Add(nullptr, "Label", "Title"));
    EXPECT_EQ("\"\"", IdPassedFor(Item("Title").handle));
}

TEST_F(AddMenuItem, AcceptsANullLabel)
{
    EXPECT_EQ(0U, Add("1", nullptr, "Child"));
    (void)AddForeignItem("Key");
    EXPECT_EQ(0U, Add("2", nullptr, "Top", nullptr));
    EXPECT_EQ("Group", Item("Child").group);
    EXPECT_EQ(kTopGroup, Item("Top").group);
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.GetNthMenuItem"));
}

TEST_F(AddMenuItem, StoresTheNewIdForTheSameHandle)
{
    const auto handle = reinterpret_cast<AIMenuItemHandle>(0x5000);
    host.menuItemHandles = {handle, handle};
    EXPECT_EQ(0U, Add("1", "Label", "Title"));
    EXPECT_EQ(0U, Add("2", "Label", "Title"));
    EXPECT_EQ("\"2\"", IdPassedFor(handle));
}

TEST_F(AddMenuItem, ReturnsAFailureAndStoresTheIdUnderTheNullHandle)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, Add("refused", "Label", "Title"));
    EXPECT_THAT(host.menuItems, IsEmpty());
    EXPECT_EQ("\"refused\"", IdPassedFor(nullptr));
}

TEST_F(AddMenuItem, ReturnsANegativeCodeUnchanged)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, -2);
    EXPECT_EQ(0xFFFFFFFEU, Add("refused", "Label", "Title"));
}

TEST_F(AddMenuItem, StoresTheIdOfANullItemWithoutAFailureToo)
{
    host.GiveNull("AIMenuSuite.AddMenuItem");
    EXPECT_EQ(0U, Add("nothing", "Label", "Title", "Fonts", true));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"));
    EXPECT_EQ("\"nothing\"", IdPassedFor(nullptr));
}

TEST_F(AddMenuItem, NamesTheSubmenuByTheLabel)
{
    EXPECT_EQ(0U, Add("1", "La/bel", "Title", "Fonts", true));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"Title\", 1)",
                            "AIMenuSuite.AddMenuGroupAsSubMenu(\"La/bel\", 0, item Title)"));
}

TEST_F(AddMenuItem, SeparatorMayHaveASubmenu)
{
    EXPECT_EQ(0U, Add("1", "Label", "", "Fonts", true));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"));
}

TEST_F(AddMenuItem, IgnoresAFailureToAddTheSubmenu)
{
    host.FailCall("AIMenuSuite.AddMenuGroupAsSubMenu", 1, kHostError);
    EXPECT_EQ(0U, Add("1", "Label", "Title", "Fonts", true));
    EXPECT_EQ("\"1\"", IdPassedFor(Item("Title").handle));
}

TEST_F(AddMenuItem, AddsNoSubmenuToAFailedItem)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, Add("1", "Label", "Title", "Fonts", true));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"));
}

TEST_F(AddMenuItem, PassesNoStateToTheHost)
{
    MenuItemHelp help;
    EXPECT_EQ(0U, AddIllustratorMenu("1", "Label", "Title", true, false, false, "Fonts", &help));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite."));
    EXPECT_TRUE(Item("Title").enabled);
    EXPECT_FALSE(Item("Title").checked);
}

TEST_F(AddMenuItem, UsesOnlyTheHoldersSuite)
{
    MenuItemHelp help;
    host.ClearCalls();
    EXPECT_EQ(0U, AddIllustratorMenu("1", "Label", "Title", true, true, true, nullptr, &help));
    EXPECT_EQ(0U, host.CountCalls("SPBasicSuite.AcquireSuite"));
}

}  // namespace
