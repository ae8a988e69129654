#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

// Which menu text an update uses, and which one it stores for the next command.
class UpdateMenusText : public RunningMenuFixture {
protected:
    UpdateMenusText()
    {
        EXPECT_EQ(0U, Add("1", "One", "One"));
        disabled = Node("1", "One");
        disabled["enabled"] = false;
    }
    // The state that a command passes to PluginCore, in quotes.
    std::string State()
    {
        EXPECT_EQ(0, SendGo(nullptr));
        const std::string call = LastSelection();
        const std::string beginning = "HandleMenuSelection(\"\", ";
        const std::string end = ", \"\", \"\")";
        return call.substr(beginning.size(), call.size() - beginning.size() - end.size());
    }

    json disabled;
};

TEST_F(UpdateMenusText, PassesThePathOfTheCurrentDocument)
{
    host.AddDocument("/a.ai");
    Forget();
    Update(Tree({disabled}), "One");
    EXPECT_EQ("GetMenus(\"/a.ai\", null, 0)", core->calls.front());
}

TEST_F(UpdateMenusText, StoresTheTextForTheCommand)
{
    Update(Tree({disabled}), "One");
    EXPECT_EQ("\"" + Tree({disabled}).dump() + "\"", State());
}

TEST_F(UpdateMenusText, ReplacesTheStoredText)
{
    Update(Tree({disabled}), "One");
    Update(Tree({Node("1", "One")}), "One");
    EXPECT_EQ("\"" + Tree({Node("1", "One")}).dump() + "\"", State());
    EXPECT_TRUE(Item("One").enabled);
}

TEST_F(UpdateMenusText, UsesThePreviousTextIfTheSecondCallFails)
{
    Update(Tree({disabled}), "One");
    Forget();
    FailSecondGetMenus();
    Update(Tree({Node("1", "One")}), "One");
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetMenus", "GetMenus"));
    EXPECT_THAT(host.Calls("AIMenuSuite."), ElementsAre("AIMenuSuite.GetItemText(item One)",
                                                        "AIMenuSuite.DisableItem(item One)",
                                                        "AIMenuSuite.CheckItem(item One, false)"));
    core->onCall.clear();
    core->statuses.clear();
    EXPECT_EQ("\"" + Tree({disabled}).dump() + "\"", State());
}

TEST_F(UpdateMenusText, HasNoTextIfTheSecondCallOfTheFirstUpdateFails)
{
    FailSecondGetMenus();
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_THROW((void)updateMenuItem(&message), json::parse_error);
    EXPECT_EQ("\"\"", State());
}

class UpdateMenusFirstAnswer : public UpdateMenusText,
                               public ::testing::WithParamInterface<unsigned int> {};

TEST_P(UpdateMenusFirstAnswer, StoresAnEmptyTextAndThrows)
{
    Update(Tree({disabled}), "One");
    AnswerFirstGetMenus(GetParam());
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_THROW((void)updateMenuItem(&message), json::parse_error);
    EXPECT_EQ("\"\"", State());
}

INSTANTIATE_TEST_SUITE_P(Answers, UpdateMenusFirstAnswer,
                         ::testing::Values(0U, 0x01000000U, 0x07000000U));

TEST_F(UpdateMenusText, StateIsEmptyBeforeTheFirstUpdate) { EXPECT_EQ("\"\"", State()); }

TEST_F(UpdateMenusText, FetchesTheTextForEachUpdate)
{
    Update(Tree({disabled}), "One");
    Update(Tree({disabled}), "One");
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.DisableItem(item One)"));
    EXPECT_EQ(4U, core->calls.size());
}

// PluginCore's text can be any: walking it must not overflow the stack.
TEST_F(UpdateMenusText, TextThatIsNestedTooDeepIsLikeOneThatDoesNotParse)
{
    constexpr int kDepth = 100000;
    std::string text;
    for (int level = 0; level < kDepth; ++level) text += R"({"id":"a","title":"b","child":[)";
    for (int level = 0; level < kDepth; ++level) text += "]}";
    core->menus = text;
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_THROW((void)updateMenuItem(&message), json::parse_error);
    EXPECT_EQ(0, host.Send(Main, "AI Menu", "AI Update", message));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
}

}  // namespace
