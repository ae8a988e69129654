#include <stdexcept>

#include "MenuFixture.h"

using ::testing::HasSubstr;

namespace {

// Which item and menu state are passed to PluginCore with a command, and what the command returns.
class SelectionItem : public RunningMenuFixture {
protected:
    SelectionItem() { EXPECT_EQ(0U, Add("1", "One", "One")); }
};

TEST_F(SelectionItem, TracesCallerAndSelector)
{
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
    EXPECT_TRUE(HasTrace("- selector is kSelectorAIGoMenuItem"));
    EXPECT_FALSE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(SelectionItem, DoesNotTraceAnUpdateAsACommand)
{
    EXPECT_EQ(0, SendUpdate(nullptr));
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
    EXPECT_FALSE(HasTrace("- selector is kSelectorAIGoMenuItem"));
    EXPECT_FALSE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(SelectionItem, TracesTheResult)
{
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    Forget();
    EXPECT_EQ(0, GoMenuItem(&message));
    EXPECT_EQ("GoMenuItem() returning 0", Traces().back().text);
    EXPECT_EQ(-1, Traces().back().indentChange);
    EXPECT_THAT(Traces().front().text, HasSubstr("GoMenuItem"));
    EXPECT_EQ(1, Traces().front().indentChange);
}

TEST_F(SelectionItem, PassesTheStateOfTheLastUpdateUnchanged)
{
    const std::string text = Tree({Node("1", "One")}).dump(4);
    core->menus = text;
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    core->menus = "{}";
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ("HandleMenuSelection(\"\", \"" + text + "\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionItem, DoesNotFetchTheMenus)
{
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite."));  // the one that added the item
    for (const std::string& name : core->CalledNames()) EXPECT_NE("GetMenus", name);
}

TEST_F(SelectionItem, PassesTheIdOfEachItem)
{
    EXPECT_EQ(0U, Add("2", "Two", "Two"));
    EXPECT_EQ("\"2\"", IdPassedFor(Item("Two").handle));
    EXPECT_EQ("\"1\"", IdPassedFor(Item("One").handle));
}

TEST_F(SelectionItem, PassesAnEmptyIdForAnUnknownItem)
{
    EXPECT_EQ("\"\"", IdPassedFor(AddForeignItem("Key", "Foreign")));
}

TEST_F(SelectionItem, StoresAnEmptyIdForAnUnknownItem)
{
    const AIMenuItemHandle foreign = AddForeignItem("Key", "Foreign");
    const json tree = Tree({Node("", "Foreign")});
    Update(tree, "Foreign");
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.EnableItem(item Key)"));
    EXPECT_EQ(0, SendGo(foreign));
    Update(tree, "Foreign");
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.EnableItem(item Key)"));
}

TEST_F(SelectionItem, AcceptsANullItem) { EXPECT_EQ("\"\"", IdPassedFor(nullptr)); }

TEST_F(SelectionItem, ExceptionOfTheCommandReachesTheBarrier)
{
    core->onCall["HandleMenuSelection"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_FALSE(HasTrace("GoMenuItem() returning 0"));
    core->onCall.clear();
    Forget();
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_TRUE(HasTrace("GoMenuItem() returning 0"));
}

TEST_F(SelectionItem, RefusesMessagesDuringACommand)
{
    AIErr update = 0;
    core->onCall["HandleMenuSelection"] = [&] { update = SendUpdate(Item("One").handle); };
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ(1, update);
}

TEST_F(SelectionItem, DoesNotNeedTheMenuSuite)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ("HandleMenuSelection(\"\", \"\", \"1\", \"\")", LastSelection());
}

TEST_F(SelectionItem, DoesNotHandleOtherSelectors)
{
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_EQ(0, host.Send(Main, "AI Menu", "AI Open", message));
    EXPECT_TRUE(HasTrace("...UNHANDLED SELECTOR"));
    EXPECT_EQ("not called", LastSelection());
}

}  // namespace
