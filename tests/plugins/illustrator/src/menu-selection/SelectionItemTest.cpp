#include <stdexcept>

#include "MenuFixture.h"

using ::testing::HasSubstr;

namespace {

// What a command tells of the item and the menus, and how it ends.
class SelectionItem : public RunningMenuTest {
protected:
    SelectionItem() { EXPECT_EQ(Add("1", "One", "One"), 0U); }
};

TEST_F(SelectionItem, CallerAndSelectorAreTraced)
{
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
    EXPECT_TRUE(HasTrace("- selector is kSelectorAIGoMenuItem"));
    EXPECT_FALSE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(SelectionItem, UpdateIsNotTracedAsACommand)
{
    EXPECT_EQ(SendUpdate(nullptr), 0);
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
    EXPECT_FALSE(HasTrace("- selector is kSelectorAIGoMenuItem"));
    EXPECT_FALSE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(SelectionItem, ResultIsTraced)
{
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    Forget();
    EXPECT_EQ(GoMenuItem(&message), 0);
    EXPECT_EQ(Traces().back().text, "GoMenuItem() returning 0");
    EXPECT_EQ(Traces().back().indentChange, -1);
    EXPECT_THAT(Traces().front().text, HasSubstr("GoMenuItem"));
    EXPECT_EQ(Traces().front().indentChange, 1);
}

TEST_F(SelectionItem, StateOfTheLastUpdateIsPassedOnUnchanged)
{
    const std::string text = Tree({Node("1", "One")}).dump(4);
    core->menus = text;
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    core->menus = "{}";
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"" + text + "\", \"1\", \"\")");
}

TEST_F(SelectionItem, CommandAsksForNoMenus)
{
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(host.CountCalls("AIMenuSuite."), 1U);  // the item's own adding
    for (const std::string& name : core->CalledNames()) EXPECT_NE(name, "GetMenus");
}

TEST_F(SelectionItem, IdsAreTheItemsOwn)
{
    EXPECT_EQ(Add("2", "Two", "Two"), 0U);
    EXPECT_EQ(IdPassedFor(Item("Two").handle), "\"2\"");
    EXPECT_EQ(IdPassedFor(Item("One").handle), "\"1\"");
}

TEST_F(SelectionItem, UnknownItemHasTheEmptyId)
{
    EXPECT_EQ(IdPassedFor(AddForeignItem("Key", "Foreign")), "\"\"");
}

TEST_F(SelectionItem, UnknownItemHasAnEntryAfterwards)
{
    const AIMenuItemHandle foreign = AddForeignItem("Key", "Foreign");
    const json tree = Tree({Node("", "Foreign")});
    Update(tree, "Foreign");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item Key)"), 0U);
    EXPECT_EQ(SendGo(foreign), 0);
    Update(tree, "Foreign");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item Key)"), 1U);
}

TEST_F(SelectionItem, NullItemIsAnItemLikeAnyOther) { EXPECT_EQ(IdPassedFor(nullptr), "\"\""); }

TEST_F(SelectionItem, ExceptionOfTheCommandEndsAtTheBarrier)
{
    core->onCall["HandleMenuSelection"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_FALSE(HasTrace("GoMenuItem() returning 0"));
    core->onCall.clear();
    Forget();
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_TRUE(HasTrace("GoMenuItem() returning 0"));
}

TEST_F(SelectionItem, MessagesDuringACommandAreRefused)
{
    AIErr update = 0;
    core->onCall["HandleMenuSelection"] = [&] { update = SendUpdate(Item("One").handle); };
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(update, 1);
}

TEST_F(SelectionItem, CommandNeedsNoMenuSuite)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"\", \"1\", \"\")");
}

TEST_F(SelectionItem, OtherSelectorsOfTheMenuAreUnhandled)
{
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_EQ(host.Send(Main, "AI Menu", "AI Open", message), 0);
    EXPECT_TRUE(HasTrace("...UNHANDLED SELECTOR"));
    EXPECT_EQ(LastSelection(), "not called");
}

}  // namespace
