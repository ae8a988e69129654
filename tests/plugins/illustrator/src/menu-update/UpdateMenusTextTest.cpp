#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

// Which text an update works with, and what it leaves for the command.
class UpdateMenusText : public RunningMenuTest {
protected:
    UpdateMenusText()
    {
        EXPECT_EQ(Add("1", "One", "One"), 0U);
        disabled = Node("1", "One");
        disabled["enabled"] = false;
    }
    std::string State()
    {
        EXPECT_EQ(SendGo(nullptr), 0);
        const std::string call = LastSelection();
        const std::string beginning = "HandleMenuSelection(\"\", ";
        const std::string end = ", \"\", \"\")";
        return call.substr(beginning.size(), call.size() - beginning.size() - end.size());
    }

    json disabled;
};

TEST_F(UpdateMenusText, PathOfTheCurrentDocumentIsTold)
{
    host.AddDocument("/a.ai");
    Forget();
    Update(Tree({disabled}), "One");
    EXPECT_EQ(core->calls.front(), "GetMenus(\"/a.ai\", null, 0)");
}

TEST_F(UpdateMenusText, TextIsPassedOnWithTheCommand)
{
    Update(Tree({disabled}), "One");
    EXPECT_EQ(State(), "\"" + Tree({disabled}).dump() + "\"");
}

TEST_F(UpdateMenusText, LaterTextTakesThePlaceOfTheEarlier)
{
    Update(Tree({disabled}), "One");
    Update(Tree({Node("1", "One")}), "One");
    EXPECT_EQ(State(), "\"" + Tree({Node("1", "One")}).dump() + "\"");
    EXPECT_TRUE(Item("One").enabled);
}

TEST_F(UpdateMenusText, FailingSecondAnswerUsesThePreviousText)
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
    EXPECT_EQ(State(), "\"" + Tree({disabled}).dump() + "\"");
}

TEST_F(UpdateMenusText, FailingSecondAnswerAtTheFirstUpdateHasNoTextToUse)
{
    FailSecondGetMenus();
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_THROW((void)updateMenuItem(&message), json::parse_error);
    EXPECT_EQ(State(), "\"\"");
}

class UpdateMenusFirstAnswer : public UpdateMenusText,
                               public ::testing::WithParamInterface<unsigned int> {};

TEST_P(UpdateMenusFirstAnswer, StoresTheEmptyTextAndThrows)
{
    Update(Tree({disabled}), "One");
    AnswerFirstGetMenus(GetParam());
    AIMenuMessage message = host.MenuMessage(Item("One").handle);
    EXPECT_THROW((void)updateMenuItem(&message), json::parse_error);
    EXPECT_EQ(State(), "\"\"");
}

INSTANTIATE_TEST_SUITE_P(Answers, UpdateMenusFirstAnswer,
                         ::testing::Values(0U, 0x01000000U, 0x07000000U));

TEST_F(UpdateMenusText, BeforeTheFirstUpdateTheStateIsEmpty) { EXPECT_EQ(State(), "\"\""); }

TEST_F(UpdateMenusText, EveryUpdateAsksAnew)
{
    Update(Tree({disabled}), "One");
    Update(Tree({disabled}), "One");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.DisableItem(item One)"), 2U);
    EXPECT_EQ(core->calls.size(), 4U);
}

}  // namespace
