#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

// The conditions under which an update refreshes the items.
class UpdateGate : public RunningMenuFixture {
protected:
    UpdateGate()
    {
        EXPECT_EQ(0U, Add("1", "One", "One"));
        core->menus = Tree({Node("1", "One")}).dump();
        Forget();
    }
    // Calls updateMenuItem without the exception barrier.
    int UpdateDirectly(AIMenuItemHandle item)
    {
        AIMenuMessage message = host.MenuMessage(item);
        return updateMenuItem(&message);
    }
    std::size_t Refreshed()
    {
        return host.CountCalls("AIMenuSuite.EnableItem") +
               host.CountCalls("AIMenuSuite.DisableItem") +
               host.CountCalls("AIMenuSuite.CheckItem");
    }
};

TEST_F(UpdateGate, CallsTheHostInOrder)
{
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.GetItemText(item One)", "AIMenuSuite.EnableItem(item One)",
                            "AIMenuSuite.CheckItem(item One, false)"));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetMenus", "GetMenus"));
    EXPECT_THAT(host.Calls("SPBasicSuite.AcquireSuite"),
                ElementsAre("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"));
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

TEST_F(UpdateGate, FetchesTheTextBeforeItAsksForTheItem)
{
    std::size_t asked = 0;
    host.OnCall("AIMenuSuite.GetItemText", [&] { asked = core->calls.size(); });
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_EQ(2U, asked);
}

TEST_F(UpdateGate, TracesTheResult)
{
    EXPECT_EQ(0, UpdateDirectly(Item("One").handle));
    EXPECT_EQ("updateMenuItem returning 0", Traces().back().text);
    EXPECT_EQ(-1, Traces().back().indentChange);
    EXPECT_THAT(Traces().front().text, HasSubstr("updateMenuItem"));
    EXPECT_EQ(1, Traces().front().indentChange);
}

TEST_F(UpdateGate, ReadsTheItemsTextAsUTF8)
{
    EXPECT_EQ(0U, Add("2", "Two", "Schrift \xC3\xBC"));
    core->menus = Tree({Node("2", "Schrift \xC3\xBC")}).dump();
    Forget();
    EXPECT_EQ(0, SendUpdate(Item("Schrift \xC3\xBC").handle));
    EXPECT_EQ(1U, host.CountCalls("AIUnicodeStringSuite.GetAs(\"Schrift \xC3\xBC\", 1)"));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.EnableItem(item Schrift \xC3\xBC)"));
}

TEST_F(UpdateGate, RefreshesNothingIfTheItemIsUnreadable)
{
    host.FailCall("AIMenuSuite.GetItemText", 1, kHostError);
    EXPECT_EQ(0, UpdateDirectly(Item("One").handle));
    EXPECT_EQ(0U, Refreshed());
}

TEST_F(UpdateGate, DoesNotParseTheTextIfTheItemIsUnreadable)
{
    core->menus = "no JSON";
    host.FailCall("AIMenuSuite.GetItemText", 1, kHostError);
    EXPECT_EQ(0, UpdateDirectly(Item("One").handle));
}

TEST_F(UpdateGate, StoresTheTextEvenIfTheItemIsUnreadable)
{
    host.FailCall("AIMenuSuite.GetItemText", 1, kHostError);
    core->menus = "[5]";
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ("HandleMenuSelection(\"\", \"[5]\", \"1\", \"\")", LastSelection());
}

TEST_F(UpdateGate, RefreshesNothingForATextThatIsNoTitle)
{
    core->menus = Tree({Node("1", "One")}).dump();
    EXPECT_EQ(0, UpdateDirectly(AddForeignItem("Key", "Foreign")));
    EXPECT_EQ(0U, Refreshed());
}

TEST_F(UpdateGate, StoresTheTextEvenIfTheItemsTextIsNoTitle)
{
    core->menus = Tree({Node("1", "renamed")}).dump();
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_EQ(0U, Refreshed());
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ("HandleMenuSelection(\"\", \"" + core->menus + "\", \"1\", \"\")", LastSelection());
}

TEST_F(UpdateGate, RefreshesForAForeignItemWhoseTextIsATitle)
{
    EXPECT_EQ(0, UpdateDirectly(AddForeignItem("Key", "root")));
    EXPECT_THAT(host.Calls("AIMenuSuite.EnableItem"),
                ElementsAre("AIMenuSuite.EnableItem(item One)"));
}

TEST_F(UpdateGate, IgnoresTitlesBelowANodeWhoseTitleIsNoString)
{
    json parent = Node("p", "", {Node("1", "One")});
    parent["title"] = 5;
    core->menus = Tree({parent}).dump();
    EXPECT_EQ(0, UpdateDirectly(Item("One").handle));
    EXPECT_EQ(0U, Refreshed());
}

TEST_F(UpdateGate, ThrowsForMalformedText)
{
    for (const char* const text : {"{\"id\":", "{} {}", "// c\n{}", "{\"id\":\"\xFF\"}"}) {
        core->menus = text;
        EXPECT_THROW((void)UpdateDirectly(Item("One").handle), json::parse_error) << text;
    }
    EXPECT_EQ(0U, Refreshed());
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
    EXPECT_EQ(0U, host.LiveStrings());
}

TEST_F(UpdateGate, MalformedTextEndsTheMessage)
{
    core->menus = "no JSON";
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_FALSE(HasTrace("updateMenuItem returning 0"));
    Forget();
    core->menus = Tree({Node("1", "One")}).dump();
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_FALSE(HasTrace(kBarrier));
    EXPECT_EQ(2U, Refreshed());
}

TEST_F(UpdateGate, StoresMalformedText)
{
    core->menus = "no JSON";
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_EQ(0, SendGo(Item("One").handle));
    EXPECT_EQ("HandleMenuSelection(\"\", \"no JSON\", \"1\", \"\")", LastSelection());
}

TEST_F(UpdateGate, ThrowsForANodeWithoutATitleBeforeTheMatch)
{
    json without = Node("0", "");
    without.erase("title");
    core->menus = Tree({without, Node("1", "One")}).dump();
    try {
        (void)UpdateDirectly(Item("One").handle);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const json::out_of_range& error) {
        EXPECT_THAT(error.what(), HasSubstr("key 'title' not found"));
    }
    EXPECT_EQ(0U, Refreshed());
}

TEST_F(UpdateGate, RefusedMenuSuiteEndsTheMessage)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_THAT(core->calls, IsEmpty());
    host.AllowSuite("AI Menu Suite", 1011);
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_EQ(2U, Refreshed());
}

TEST_F(UpdateGate, UnreadableTextEndsTheMessage)
{
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, kHostError);
    EXPECT_EQ(0, SendUpdate(Item("One").handle));
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_EQ(0U, Refreshed());
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

}  // namespace
