#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// How an update changes the items. It is sent for the item "Gate".
class UpdateItems : public RunningMenuFixture {
protected:
    UpdateItems()
    {
        EXPECT_EQ(0U, Add("gate", "Gate", "Gate"));
        EXPECT_EQ(0U, Add("1", "One", "One"));
        Forget();
    }
    // A tree with these nodes and one whose title is that of the gate, but not its id.
    static json With(std::vector<json> nodes)
    {
        nodes.insert(nodes.begin(), Node("not the gate's id", "Gate"));
        return Tree(nodes);
    }
    static json NodeWith(const char* key, const json& value)
    {
        json node = Node("1", "One");
        node[key] = value;
        return node;
    }
    std::vector<std::string> Refreshed()
    {
        std::vector<std::string> calls = host.Calls("AIMenuSuite.");
        if (!calls.empty()) calls.erase(calls.begin());  // GetItemText of the gate
        return calls;
    }
    // The message of the exception that an update with this tree throws.
    template <class Exception>
    std::string Thrown(const json& tree)
    {
        core->menus = tree.dump();
        AIMenuMessage message = host.MenuMessage(Item("Gate").handle);
        try {
            (void)updateMenuItem(&message);
        } catch (const Exception& error) {
            return error.what();
        }
        return "nothing was thrown";
    }
};

TEST_F(UpdateItems, OneUpdateRefreshesAllItems)
{
    EXPECT_EQ(0U, Add("2", "Two", "Two"));
    Forget();
    json two = Node("2", "Two");
    two["enabled"] = false;
    two["checked"] = true;
    Update(With({two, Node("1", "One")}), "Gate");
    EXPECT_THAT(
        Refreshed(),
        ElementsAre("AIMenuSuite.EnableItem(item One)", "AIMenuSuite.CheckItem(item One, false)",
                    "AIMenuSuite.DisableItem(item Two)", "AIMenuSuite.CheckItem(item Two, true)"));
}

TEST_F(UpdateItems, RefreshesItemsInAscendingOrderOfTheirHandles)
{
    const auto handle = [](std::size_t number) {
        return reinterpret_cast<AIMenuItemHandle>(number);
    };
    host.menuItemHandles = {handle(0x9000), handle(0x5000), handle(0x7000)};
    EXPECT_EQ(0U, Add("a", "A", "A"));
    EXPECT_EQ(0U, Add("b", "B", "B"));
    EXPECT_EQ(0U, Add("c", "C", "C"));
    Update(With({Node("a", "A"), Node("b", "B"), Node("c", "C")}), "Gate");
    EXPECT_THAT(host.Calls("AIMenuSuite.EnableItem"),
                ElementsAre("AIMenuSuite.EnableItem(item B)", "AIMenuSuite.EnableItem(item C)",
                            "AIMenuSuite.EnableItem(item A)"));
}

TEST_F(UpdateItems, DoesNotRefreshAnItemWhoseIdIsNotInTheTree)
{
    EXPECT_EQ(0U, Add("2", "Two", "Two"));
    Forget();
    Update(With({Node("2", "Two")}), "Gate");
    EXPECT_THAT(Refreshed(), ElementsAre("AIMenuSuite.EnableItem(item Two)",
                                         "AIMenuSuite.CheckItem(item Two, false)"));
}

TEST_F(UpdateItems, FindsNodesByIdAndNotByTitle)
{
    Update(With({Node("1", "another title")}), "Gate");
    EXPECT_EQ(2U, Refreshed().size());
}

TEST_F(UpdateItems, FindsNestedNodes)
{
    json nested = NodeWith("enabled", false);
    Update(With({Node("menu", "Menu", {Node("sub", "Sub", {nested})})}), "Gate");
    EXPECT_FALSE(Item("One").enabled);
}

TEST_F(UpdateItems, UsesTheFirstNodeWithAnId)
{
    Update(With({NodeWith("enabled", false), Node("1", "One")}), "Gate");
    EXPECT_FALSE(Item("One").enabled);
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.EnableItem"));
}

TEST_F(UpdateItems, RefreshesTwoItemsWithTheSameId)
{
    EXPECT_EQ(0U, Add("1", "Again", "Again"));
    Update(With({NodeWith("enabled", false)}), "Gate");
    EXPECT_FALSE(Item("One").enabled);
    EXPECT_FALSE(Item("Again").enabled);
}

TEST_F(UpdateItems, FindsTheRootNode)
{
    EXPECT_EQ(0U, Add("root", "R", "R"));
    Update(With({}), "Gate");
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.EnableItem(item R)"));
}

TEST_F(UpdateItems, RefreshesTheEntryUnderTheNullHandleFirst)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, Add("refused", "Refused", "Refused"));
    Forget();
    Update(With({Node("1", "One"), Node("refused", "Refused")}), "Gate");
    EXPECT_THAT(
        Refreshed(),
        ElementsAre("AIMenuSuite.EnableItem(null)", "AIMenuSuite.CheckItem(null, false)",
                    "AIMenuSuite.EnableItem(item One)", "AIMenuSuite.CheckItem(item One, false)"));
}

TEST_F(UpdateItems, IgnoresFailuresToEnableAndCheck)
{
    host.FailCall("AIMenuSuite.EnableItem", 0, kHostError);
    host.FailCall("AIMenuSuite.CheckItem", 0, kHostError);
    EXPECT_EQ(0U, Add("2", "Two", "Two"));
    Update(With({Node("1", "One"), Node("2", "Two")}), "Gate");
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.EnableItem"));
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.CheckItem"));
}

TEST_F(UpdateItems, IgnoresAFailureToDisable)
{
    host.FailCall("AIMenuSuite.DisableItem", 0, kHostError);
    Update(With({NodeWith("enabled", false)}), "Gate");
    EXPECT_EQ(2U, Refreshed().size());
}

struct Checked {
    const char* text;
    bool mark;
};
void PrintTo(const Checked& row, std::ostream* out) { *out << row.text; }

class CheckedValues : public UpdateItems, public ::testing::WithParamInterface<Checked> {};

TEST_P(CheckedValues, ConvertsABooleanOrNumberToEightBits)
{
    Update(With({NodeWith("checked", json::parse(GetParam().text))}), "Gate");
    EXPECT_EQ(
        std::string("AIMenuSuite.CheckItem(item One, ") + (GetParam().mark ? "true)" : "false)"),
        Refreshed().back());
}

INSTANTIATE_TEST_SUITE_P(Values, CheckedValues,
                         ::testing::Values(Checked{"true", true}, Checked{"false", false},
                                           Checked{"1", true}, Checked{"0", false},
                                           Checked{"2", true}, Checked{"255", true},
                                           Checked{"256", false}, Checked{"257", true},
                                           Checked{"-1", true}, Checked{"-256", false},
                                           Checked{"1.0", true}, Checked{"0.5", false},
                                           Checked{"257.5", true}, Checked{"256.5", false},
                                           Checked{"1e300", false}, Checked{"-1e300", false}),
                         [](const auto& row) {
                             std::string name = row.param.text;
                             for (char& each : name) {
                                 if (each == '-') each = 'm';
                                 if (each == '.') each = '_';
                             }
                             return name;
                         });

class BadEnabled : public UpdateItems, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadEnabled, ThrowsForATypeOtherThanBoolean)
{
    EXPECT_THAT(Thrown<json::type_error>(With({NodeWith("enabled", json::parse(GetParam()))})),
                HasSubstr("must be boolean"));
    EXPECT_THAT(Refreshed(), ::testing::IsEmpty());
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

INSTANTIATE_TEST_SUITE_P(Values, BadEnabled,
                         ::testing::Values("1", "0", "\"true\"", "null", "[]", "{}", "1.0"));

class BadChecked : public UpdateItems, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadChecked, ThrowsForOtherTypesAfterTheItemIsEnabled)
{
    EXPECT_THAT(Thrown<json::type_error>(With({NodeWith("checked", json::parse(GetParam()))})),
                HasSubstr("must be number"));
    EXPECT_THAT(Refreshed(), ElementsAre("AIMenuSuite.EnableItem(item One)"));
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

INSTANTIATE_TEST_SUITE_P(Values, BadChecked,
                         ::testing::Values("\"true\"", "\"1\"", "null", "[]", "{}"));

TEST_F(UpdateItems, ThrowsForAMissingMemberAfterRefreshingTheItemsBefore)
{
    EXPECT_EQ(0U, Add("2", "Two", "Two"));
    EXPECT_EQ(0U, Add("3", "Three", "Three"));
    for (const char* const key : {"enabled", "checked"}) {
        json two = Node("2", "Two");
        two.erase(key);
        Forget();
        EXPECT_NE("nothing was thrown",
                  Thrown<json::exception>(With({Node("1", "One"), two, Node("3", "Three")})))
            << key;
        EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.EnableItem(item One)")) << key;
        EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.CheckItem(item Two")) << key;
        EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.EnableItem(item Three)")) << key;
        EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011)) << key;
    }
}

TEST_F(UpdateItems, ThrowsForANodeWithoutAnId)
{
    json without = Node("", "Without");
    without.erase("id");
    EXPECT_THAT(Thrown<json::out_of_range>(With({without, Node("1", "One")})),
                HasSubstr("key 'id' not found"));
    EXPECT_THAT(Refreshed(), ::testing::IsEmpty());
}

TEST_F(UpdateItems, DoesNotReachANodeWithoutAnIdAfterTheMatches)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, Add("0", "Zero", "under the null handle"));
    json without = Node("", "Without");
    without.erase("id");
    // The tree has a match for each entry before the node without an id.
    core->menus = Tree({Node("gate", "Gate"), Node("1", "One"), Node("0", "Zero"), without}).dump();
    AIMenuMessage message = host.MenuMessage(Item("Gate").handle);
    Forget();
    EXPECT_EQ(0, updateMenuItem(&message));
    EXPECT_EQ(3U, host.CountCalls("AIMenuSuite.EnableItem"));
}

}  // namespace
