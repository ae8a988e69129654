#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AddMenuItem : public RunningMenuTest {};

TEST_F(AddMenuItem, TopLevelItemJoinsThePluginsGroup)
{
    EXPECT_EQ(Add("1", "Label", "Title", nullptr), 0U);
    EXPECT_THAT(host.Calls("AIMenuSuite.Add"),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Type Plugins1\", \"Title\", 1)"));
}

TEST_F(AddMenuItem, ChildJoinsTheGroupOfItsParent)
{
    EXPECT_EQ(Add("1", "Label", "Title", "Fonts"), 0U);
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"Title\", 1)"));
}

TEST_F(AddMenuItem, ItemBelongsToThePlugin)
{
    EXPECT_EQ(Add("1", "Label", "Title"), 0U);
    EXPECT_EQ(Item("Title").self, host.Head().self);
}

TEST_F(AddMenuItem, TitleIsConvertedFromUTF8AndGivenBack)
{
    EXPECT_EQ(Add("1", "Label", "Schrift \xC3\xBC"), 0U);
    EXPECT_THAT(host.Calls("AIUnicodeStringSuite."),
                ElementsAre("AIUnicodeStringSuite.Initialize(\"Schrift \xC3\xBC\", 10, 1)",
                            "AIUnicodeStringSuite.Destroy()"));
    EXPECT_EQ(host.LiveStrings(), 0U);
}

TEST_F(AddMenuItem, EmptyTitleMakesASeparator)
{
    EXPECT_EQ(Add("1", "Label", "", "Fonts"), 0U);
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"\", 4)"));
    EXPECT_EQ(host.CountCalls("AIUnicodeStringSuite.Initialize"), 0U);
}

TEST_F(AddMenuItem, NullTitleMakesASeparator)
{
    EXPECT_EQ(Add("1", "Label", nullptr, "Fonts"), 0U);
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"\", 4)"));
}

TEST_F(AddMenuItem, IdIsKeptForTheCommand)
{
    EXPECT_EQ(Add("the id", "Label", "Title"), 0U);
    EXPECT_EQ(IdPassedFor(Item("Title").handle), "\"the id\"");
}

TEST_F(AddMenuItem, SeparatorKeepsItsIdToo)
{
    EXPECT_EQ(Add("line", "Label", ""), 0U);
    EXPECT_EQ(IdPassedFor(Item("").handle), "\"line\"");
}

TEST_F(AddMenuItem, NullIdIsKeptAsTheEmptyOne)
{
    EXPECT_EQ(Add(nullptr, "Label", "Title"), 0U);
    EXPECT_EQ(IdPassedFor(Item("Title").handle), "\"\"");
}

TEST_F(AddMenuItem, NullLabelIsNoObstacle)
{
    EXPECT_EQ(Add("1", nullptr, "Child"), 0U);
    (void)AddForeignItem("Key");
    EXPECT_EQ(Add("2", nullptr, "Top", nullptr), 0U);
    EXPECT_EQ(Item("Child").group, "Group");
    EXPECT_EQ(Item("Top").group, kTopGroup);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.GetNthMenuItem"), 2U);
}

TEST_F(AddMenuItem, SameHandleAgainTakesTheNewId)
{
    const auto handle = reinterpret_cast<AIMenuItemHandle>(0x5000);
    host.menuItemHandles = {handle, handle};
    EXPECT_EQ(Add("1", "Label", "Title"), 0U);
    EXPECT_EQ(Add("2", "Label", "Title"), 0U);
    EXPECT_EQ(IdPassedFor(handle), "\"2\"");
}

TEST_F(AddMenuItem, FailureIsTheResultAndLeavesAnEntryUnderTheNullHandle)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(Add("refused", "Label", "Title"), 4711U);
    EXPECT_THAT(host.menuItems, IsEmpty());
    EXPECT_EQ(IdPassedFor(nullptr), "\"refused\"");
}

TEST_F(AddMenuItem, NegativeFailureIsTheResultBitForBit)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, -2);
    EXPECT_EQ(Add("refused", "Label", "Title"), 0xFFFFFFFEU);
}

TEST_F(AddMenuItem, NullItemWithoutAFailureLeavesTheEntryToo)
{
    host.GiveNull("AIMenuSuite.AddMenuItem");
    EXPECT_EQ(Add("nothing", "Label", "Title", "Fonts", true), 0U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"), 0U);
    EXPECT_EQ(IdPassedFor(nullptr), "\"nothing\"");
}

TEST_F(AddMenuItem, SubmenuIsNamedByTheLabel)
{
    EXPECT_EQ(Add("1", "La/bel", "Title", "Fonts", true), 0U);
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.AddMenuItem((null), \"Fonts\", \"Title\", 1)",
                            "AIMenuSuite.AddMenuGroupAsSubMenu(\"La/bel\", 0, item Title)"));
}

TEST_F(AddMenuItem, SeparatorMayHaveASubmenu)
{
    EXPECT_EQ(Add("1", "Label", "", "Fonts", true), 0U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"), 1U);
}

TEST_F(AddMenuItem, FailedSubmenuIsDropped)
{
    host.FailCall("AIMenuSuite.AddMenuGroupAsSubMenu", 1, kHostError);
    EXPECT_EQ(Add("1", "Label", "Title", "Fonts", true), 0U);
    EXPECT_EQ(IdPassedFor(Item("Title").handle), "\"1\"");
}

TEST_F(AddMenuItem, FailedItemGetsNoSubmenu)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(Add("1", "Label", "Title", "Fonts", true), 4711U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuGroupAsSubMenu"), 0U);
}

TEST_F(AddMenuItem, StateGoesToNoHostCall)
{
    MenuItemHelp help;
    EXPECT_EQ(AddIllustratorMenu("1", "Label", "Title", true, false, false, "Fonts", &help), 0U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite."), 1U);
    EXPECT_TRUE(Item("Title").enabled);
    EXPECT_FALSE(Item("Title").checked);
}

TEST_F(AddMenuItem, UsesTheHoldersSuiteAlone)
{
    MenuItemHelp help;
    host.ClearCalls();
    EXPECT_EQ(AddIllustratorMenu("1", "Label", "Title", true, true, true, nullptr, &help), 0U);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite"), 0U);
}

}  // namespace
