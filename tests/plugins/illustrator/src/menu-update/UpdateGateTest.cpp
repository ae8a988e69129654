#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

const char* const kBarrier = "Unhandled exception in Typeloft plugin.";

// What has to hold before an update refreshes anything.
class UpdateGate : public RunningMenuTest {
protected:
    UpdateGate()
    {
        EXPECT_EQ(Add("1", "One", "One"), 0U);
        core->menus = Tree({Node("1", "One")}).dump();
        Forget();
    }
    // The update without the barrier around it.
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

TEST_F(UpdateGate, CallsComeInOrder)
{
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.GetItemText(item One)", "AIMenuSuite.EnableItem(item One)",
                            "AIMenuSuite.CheckItem(item One, false)"));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetMenus", "GetMenus"));
    EXPECT_THAT(host.Calls("SPBasicSuite.AcquireSuite"),
                ElementsAre("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"));
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

TEST_F(UpdateGate, TextIsFetchedBeforeTheItemIsAsked)
{
    std::size_t asked = 0;
    host.OnCall("AIMenuSuite.GetItemText", [&] { asked = core->calls.size(); });
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_EQ(asked, 2U);
}

TEST_F(UpdateGate, ResultIsTraced)
{
    EXPECT_EQ(UpdateDirectly(Item("One").handle), 0);
    EXPECT_EQ(Traces().back().text, "updateMenuItem returning 0");
    EXPECT_EQ(Traces().back().indentChange, -1);
    EXPECT_THAT(Traces().front().text, HasSubstr("updateMenuItem"));
    EXPECT_EQ(Traces().front().indentChange, 1);
}

TEST_F(UpdateGate, ItemTextIsReadAsUTF8)
{
    EXPECT_EQ(Add("2", "Two", "Schrift \xC3\xBC"), 0U);
    core->menus = Tree({Node("2", "Schrift \xC3\xBC")}).dump();
    Forget();
    EXPECT_EQ(SendUpdate(Item("Schrift \xC3\xBC").handle), 0);
    EXPECT_EQ(host.CountCalls("AIUnicodeStringSuite.GetAs(\"Schrift \xC3\xBC\", 1)"), 1U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item Schrift \xC3\xBC)"), 1U);
}

TEST_F(UpdateGate, UnreadableItemRefreshesNothing)
{
    host.FailCall("AIMenuSuite.GetItemText", 1, kHostError);
    EXPECT_EQ(UpdateDirectly(Item("One").handle), 0);
    EXPECT_EQ(Refreshed(), 0U);
}

TEST_F(UpdateGate, UnreadableItemStopsBeforeTheParse)
{
    core->menus = "no JSON";
    host.FailCall("AIMenuSuite.GetItemText", 1, kHostError);
    EXPECT_EQ(UpdateDirectly(Item("One").handle), 0);
}

TEST_F(UpdateGate, UnreadableItemStillStoresTheText)
{
    host.FailCall("AIMenuSuite.GetItemText", 1, kHostError);
    core->menus = "[5]";
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"[5]\", \"1\", \"\")");
}

TEST_F(UpdateGate, ItemThatIsNoNodesTitleRefreshesNothing)
{
    core->menus = Tree({Node("1", "One")}).dump();
    EXPECT_EQ(UpdateDirectly(AddForeignItem("Key", "Foreign")), 0);
    EXPECT_EQ(Refreshed(), 0U);
}

TEST_F(UpdateGate, ItemThatIsNoNodesTitleStillStoresTheText)
{
    core->menus = Tree({Node("1", "renamed")}).dump();
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_EQ(Refreshed(), 0U);
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"" + core->menus + "\", \"1\", \"\")");
}

TEST_F(UpdateGate, ForeignItemOfATitleInTheTreeOpensTheGate)
{
    EXPECT_EQ(UpdateDirectly(AddForeignItem("Key", "root")), 0);
    EXPECT_THAT(host.Calls("AIMenuSuite.EnableItem"),
                ElementsAre("AIMenuSuite.EnableItem(item One)"));
}

TEST_F(UpdateGate, TitleBelowANodeWithoutATextualTitleIsNotSeen)
{
    json parent = Node("p", "", {Node("1", "One")});
    parent["title"] = 5;
    core->menus = Tree({parent}).dump();
    EXPECT_EQ(UpdateDirectly(Item("One").handle), 0);
    EXPECT_EQ(Refreshed(), 0U);
}

TEST_F(UpdateGate, BadTextIsThrown)
{
    for (const char* const text : {"{\"id\":", "{} {}", "// c\n{}", "{\"id\":\"\xFF\"}"}) {
        core->menus = text;
        EXPECT_THROW((void)UpdateDirectly(Item("One").handle), json::parse_error) << text;
    }
    EXPECT_EQ(Refreshed(), 0U);
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
    EXPECT_EQ(host.LiveStrings(), 0U);
}

TEST_F(UpdateGate, BadTextEndsAtTheBarrier)
{
    core->menus = "no JSON";
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_FALSE(HasTrace("updateMenuItem returning 0"));
    Forget();
    core->menus = Tree({Node("1", "One")}).dump();
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_FALSE(HasTrace(kBarrier));
    EXPECT_EQ(Refreshed(), 2U);
}

TEST_F(UpdateGate, BadTextIsStored)
{
    core->menus = "no JSON";
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_EQ(SendGo(Item("One").handle), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"no JSON\", \"1\", \"\")");
}

TEST_F(UpdateGate, NodeWithoutATitleBeforeTheMatchIsThrown)
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
    EXPECT_EQ(Refreshed(), 0U);
}

TEST_F(UpdateGate, RefusedMenuSuiteEndsAtTheBarrier)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_THAT(core->calls, IsEmpty());
    host.AllowSuite("AI Menu Suite", 1011);
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_EQ(Refreshed(), 2U);
}

TEST_F(UpdateGate, ConversionThatFailsEndsAtTheBarrier)
{
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, kHostError);
    EXPECT_EQ(SendUpdate(Item("One").handle), 0);
    EXPECT_TRUE(HasTrace(kBarrier));
    EXPECT_EQ(Refreshed(), 0U);
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

}  // namespace
