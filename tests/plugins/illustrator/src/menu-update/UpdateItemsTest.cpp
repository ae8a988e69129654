#include "MenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// What an update does to the items. The one that it is sent for is called "Gate".
class UpdateItems : public RunningMenuTest {
protected:
    UpdateItems()
    {
        EXPECT_EQ(Add("gate", "Gate", "Gate"), 0U);
        EXPECT_EQ(Add("1", "One", "One"), 0U);
        Forget();
    }
    // A tree with the gate, whose node matches by its title alone, and these.
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
        if (!calls.empty()) calls.erase(calls.begin());  // the gate's text
        return calls;
    }
    // What an update of this tree throws.
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
    EXPECT_EQ(Add("2", "Two", "Two"), 0U);
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

TEST_F(UpdateItems, ItemsAreRefreshedInAscendingOrderOfTheirHandles)
{
    const auto handle = [](std::size_t number) {
        return reinterpret_cast<AIMenuItemHandle>(number);
    };
    host.menuItemHandles = {handle(0x9000), handle(0x5000), handle(0x7000)};
    EXPECT_EQ(Add("a", "A", "A"), 0U);
    EXPECT_EQ(Add("b", "B", "B"), 0U);
    EXPECT_EQ(Add("c", "C", "C"), 0U);
    Update(With({Node("a", "A"), Node("b", "B"), Node("c", "C")}), "Gate");
    EXPECT_THAT(host.Calls("AIMenuSuite.EnableItem"),
                ElementsAre("AIMenuSuite.EnableItem(item B)", "AIMenuSuite.EnableItem(item C)",
                            "AIMenuSuite.EnableItem(item A)"));
}

TEST_F(UpdateItems, ItemWhoseIdTheTreeLacksIsLeftAlone)
{
    EXPECT_EQ(Add("2", "Two", "Two"), 0U);
    Forget();
    Update(With({Node("2", "Two")}), "Gate");
    EXPECT_THAT(Refreshed(), ElementsAre("AIMenuSuite.EnableItem(item Two)",
                                         "AIMenuSuite.CheckItem(item Two, false)"));
}

TEST_F(UpdateItems, NodeIsFoundByItsIdAndNotByItsTitle)
{
    Update(With({Node("1", "another title")}), "Gate");
    EXPECT_EQ(Refreshed().size(), 2U);
}

TEST_F(UpdateItems, NestedNodesCount)
{
    json nested = NodeWith("enabled", false);
    Update(With({Node("menu", "Menu", {Node("sub", "Sub", {nested})})}), "Gate");
    EXPECT_FALSE(Item("One").enabled);
}

TEST_F(UpdateItems, FirstNodeOfAnIdCounts)
{
    Update(With({NodeWith("enabled", false), Node("1", "One")}), "Gate");
    EXPECT_FALSE(Item("One").enabled);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem"), 0U);
}

TEST_F(UpdateItems, TwoItemsMayShareAnId)
{
    EXPECT_EQ(Add("1", "Again", "Again"), 0U);
    Update(With({NodeWith("enabled", false)}), "Gate");
    EXPECT_FALSE(Item("One").enabled);
    EXPECT_FALSE(Item("Again").enabled);
}

TEST_F(UpdateItems, RootIsANodeToo)
{
    EXPECT_EQ(Add("root", "R", "R"), 0U);
    Update(With({}), "Gate");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item R)"), 1U);
}

TEST_F(UpdateItems, EntryUnderTheNullHandleIsRefreshedFirst)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(Add("refused", "Refused", "Refused"), 4711U);
    Forget();
    Update(With({Node("1", "One"), Node("refused", "Refused")}), "Gate");
    EXPECT_THAT(
        Refreshed(),
        ElementsAre("AIMenuSuite.EnableItem(null)", "AIMenuSuite.CheckItem(null, false)",
                    "AIMenuSuite.EnableItem(item One)", "AIMenuSuite.CheckItem(item One, false)"));
}

TEST_F(UpdateItems, HostsAnswersAreNotLookedAt)
{
    host.FailCall("AIMenuSuite.EnableItem", 0, kHostError);
    host.FailCall("AIMenuSuite.CheckItem", 0, kHostError);
    EXPECT_EQ(Add("2", "Two", "Two"), 0U);
    Update(With({Node("1", "One"), Node("2", "Two")}), "Gate");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem"), 2U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.CheckItem"), 2U);
}

TEST_F(UpdateItems, FailingDisableIsNotLookedAtEither)
{
    host.FailCall("AIMenuSuite.DisableItem", 0, kHostError);
    Update(With({NodeWith("enabled", false)}), "Gate");
    EXPECT_EQ(Refreshed().size(), 2U);
}

struct Checked {
    const char* text;
    bool mark;
};
void PrintTo(const Checked& row, std::ostream* out) { *out << row.text; }

class CheckedValues : public UpdateItems, public ::testing::WithParamInterface<Checked> {};

TEST_P(CheckedValues, BooleanOrNumberIsTakenAsEightBits)
{
    Update(With({NodeWith("checked", json::parse(GetParam().text))}), "Gate");
    EXPECT_EQ(Refreshed().back(), std::string("AIMenuSuite.CheckItem(item One, ") +
                                      (GetParam().mark ? "true)" : "false)"));
}

INSTANTIATE_TEST_SUITE_P(Values, CheckedValues,
                         ::testing::Values(Checked{"true", true}, Checked{"false", false},
                                           Checked{"1", true}, Checked{"0", false},
                                           Checked{"2", true}, Checked{"255", true},
                                           Checked{"256", false}, Checked{"257", true},
                                           Checked{"-1", true}, Checked{"-256", false},
                                           Checked{"1.0", true}, Checked{"0.5", false}),
                         [](const auto& row) {
                             std::string name = row.param.text;
                             for (char& each : name) {
                                 if (each == '-') each = 'm';
                                 if (each == '.') each = '_';
                             }
                             return name;
                         });

class BadEnabled : public UpdateItems, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadEnabled, OtherTypeThanBooleanIsThrown)
{
    EXPECT_THAT(Thrown<json::type_error>(With({NodeWith("enabled", json::parse(GetParam()))})),
                HasSubstr("must be boolean"));
    EXPECT_THAT(Refreshed(), ::testing::IsEmpty());
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

INSTANTIATE_TEST_SUITE_P(Values, BadEnabled,
                         ::testing::Values("1", "0", "\"true\"", "null", "[]", "{}", "1.0"));

class BadChecked : public UpdateItems, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadChecked, OtherTypeIsThrownOnceTheItemIsEnabled)
{
    EXPECT_THAT(Thrown<json::type_error>(With({NodeWith("checked", json::parse(GetParam()))})),
                HasSubstr("must be number"));
    EXPECT_THAT(Refreshed(), ElementsAre("AIMenuSuite.EnableItem(item One)"));
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

INSTANTIATE_TEST_SUITE_P(Values, BadChecked,
                         ::testing::Values("\"true\"", "\"1\"", "null", "[]", "{}"));

TEST_F(UpdateItems, AbsentMemberEndsTheMessageAndLeavesTheItemsBefore)
{
    EXPECT_EQ(Add("2", "Two", "Two"), 0U);
    EXPECT_EQ(Add("3", "Three", "Three"), 0U);
    for (const char* const key : {"enabled", "checked"}) {
        json two = Node("2", "Two");
        two.erase(key);
        Forget();
        EXPECT_NE(Thrown<json::exception>(With({Node("1", "One"), two, Node("3", "Three")})),
                  "nothing was thrown")
            << key;
        EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item One)"), 1U) << key;
        EXPECT_EQ(host.CountCalls("AIMenuSuite.CheckItem(item Two"), 0U) << key;
        EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item Three)"), 0U) << key;
        EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0) << key;
    }
}

TEST_F(UpdateItems, NodeWithoutAnIdIsThrown)
{
    json without = Node("", "Without");
    without.erase("id");
    EXPECT_THAT(Thrown<json::out_of_range>(With({without, Node("1", "One")})),
                HasSubstr("key 'id' not found"));
    EXPECT_THAT(Refreshed(), ::testing::IsEmpty());
}

TEST_F(UpdateItems, NodeWithoutAnIdBehindTheMatchesIsNotReached)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(Add("0", "Zero", "under the null handle"), 4711U);
    json without = Node("", "Without");
    without.erase("id");
    // All entries have a match before it.
    core->menus = Tree({Node("gate", "Gate"), Node("1", "One"), Node("0", "Zero"), without}).dump();
    AIMenuMessage message = host.MenuMessage(Item("Gate").handle);
    Forget();
    EXPECT_EQ(updateMenuItem(&message), 0);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem"), 3U);
}

}  // namespace
