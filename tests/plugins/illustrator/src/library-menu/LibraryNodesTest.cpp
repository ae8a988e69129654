#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// What a rebuild asks of a library's node.
class LibraryNodes : public LibraryMenuTest {
protected:
    static json NodeWith(const char* key, const json& value)
    {
        json node = Node("lib B", "B");
        node[key] = value;
        return node;
    }
    // The middle one of three.
    static json WithMiddle(const json& node)
    {
        return With({Node("lib A", "A"), node, Node("lib C", "C")});
    }
};

TEST_F(LibraryNodes, EmptyTitleMakesASeparator)
{
    Rebuild(With({Node("lib A", "A"), Node("line", "")}));
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuItem((null), \"Select Library\", \"\", 4)"), 1U);
    EXPECT_EQ(IdPassedFor(Item("").handle), "\"line\"");
    Rebuild(With({}));
    EXPECT_THAT(Submenu(), IsEmpty());
}

TEST_F(LibraryNodes, NodeWhoseLabelIsNoTextIsSkipped)
{
    for (const json& label : {json(5), json(nullptr), json(true), json::array(), json::object()}) {
        Rebuild(WithMiddle(NodeWith("label", label)));
        EXPECT_THAT(Submenu(), ElementsAre("A", "C")) << label;
    }
}

TEST_F(LibraryNodes, OtherMembersOfASkippedNodeAreNotConverted)
{
    json node = NodeWith("label", 5);
    node["id"] = 1;
    node["title"] = 2;
    node["checked"] = "x";
    node["enabled"] = nullptr;
    Rebuild(WithMiddle(node));
    EXPECT_THAT(Submenu(), ElementsAre("A", "C"));
}

TEST_F(LibraryNodes, ChildMayBeAbsent)
{
    json node = Node("lib B", "B");
    node.erase("child");
    Rebuild(WithMiddle(node));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
}

TEST_F(LibraryNodes, LibrariesThatAreNoArrayButEmptyAddNothing)
{
    json tree = With({});
    tree["child"][1]["child"] = nullptr;
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
}

class AbsentMember : public LibraryNodes, public ::testing::WithParamInterface<const char*> {};

TEST_P(AbsentMember, IsThrownToTheCallerAndKeepsTheItemsBefore)
{
    json node = Node("lib B", "B");
    node.erase(GetParam());
    EXPECT_TRUE(RebuildThrows<json::out_of_range>(WithMiddle(node)));
    ExpectNothingIsOut();
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
    EXPECT_FALSE(HasTraceBeginningWith("AddIllustratorMenu result"));
    ExpectIdsPassed();
    Rebuild(With(Libraries({"D"})));
    EXPECT_THAT(Submenu(), ElementsAre("D"));
}

TEST_P(AbsentMember, IsThrownEvenIfTheLabelIsNoText)
{
    json node = NodeWith("label", 5);
    node.erase(GetParam());
    EXPECT_TRUE(RebuildThrows<json::out_of_range>(WithMiddle(node)));
}

INSTANTIATE_TEST_SUITE_P(Keys, AbsentMember,
                         ::testing::Values("id", "label", "title", "checked", "enabled"));

struct BadMember {
    const char* key;
    const char* value;
};
void PrintTo(const BadMember& row, std::ostream* out) { *out << row.key << ": " << row.value; }

class WrongMember : public LibraryNodes, public ::testing::WithParamInterface<BadMember> {};

TEST_P(WrongMember, IsThrownToTheCaller)
{
    const json node = NodeWith(GetParam().key, json::parse(GetParam().value));
    EXPECT_TRUE(RebuildThrows<json::type_error>(WithMiddle(node)));
    ExpectNothingIsOut();
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

INSTANTIATE_TEST_SUITE_P(
    Values, WrongMember,
    ::testing::Values(BadMember{"id", "5"}, BadMember{"id", "null"}, BadMember{"title", "5"},
                      BadMember{"title", "null"}, BadMember{"checked", "1"},
                      BadMember{"checked", "\"true\""}, BadMember{"checked", "null"},
                      BadMember{"enabled", "1"}, BadMember{"enabled", "null"}),
    [](const auto& row) { return std::string(row.param.key) + "_" + std::to_string(row.index); });

TEST_F(LibraryNodes, NodeThatIsNoObjectIsThrown)
{
    for (const json& node : {json(5), json("text"), json(nullptr), json::array()}) {
        EXPECT_TRUE(RebuildThrows<json::type_error>(WithMiddle(node))) << node;
        EXPECT_THAT(Submenu(), ElementsAre("A")) << node;
    }
    ExpectNothingIsOut();
}

TEST_F(LibraryNodes, ItemThatCannotBeAddedStopsTheWalk)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 2, kHostError);
    Rebuild(With(Libraries({"A", "B", "C"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuItem"), 2U);
    EXPECT_EQ(CountTraces("AddIllustratorMenu result 4711"), 1U);
    ExpectIdsPassed();
}

TEST_F(LibraryNodes, NodesBehindTheStopAreNotRead)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_FALSE(RebuildThrows<json::exception>(With({Node("lib A", "A"), json(5)})));
}

TEST_F(LibraryNodes, ItemThatCouldNotBeAddedLeavesANullOneToBeRemoved)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 2, kHostError);
    Rebuild(With(Libraries({"A", "B"})));
    EXPECT_EQ(IdPassedFor(nullptr), "\"lib B\"");
    Forget();
    Rebuild(With(Libraries({"A", "B"})));
    EXPECT_THAT(
        host.Calls("AIMenuSuite.RemoveMenuItem"),
        ElementsAre("AIMenuSuite.RemoveMenuItem(item A)", "AIMenuSuite.RemoveMenuItem(null)"));
    EXPECT_EQ(CountTraces("Error 1346458189 in clearing workgroups menu"), 1U);
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    EXPECT_EQ(IdPassedFor(nullptr), "\"\"");
}

TEST_F(LibraryNodes, LibraryWithTheReservedLabelTakesTheSubmenusPlace)
{
    json inner = Node("lib B", "B");
    inner["label"] = kLibraryLabel;
    Rebuild(WithMiddle(inner));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
    Forget();
    // It has no submenu, so that nothing can be built anew any more.
    Rebuild(With({}));
    EXPECT_THAT(host.Calls("AIMenuSuite."), ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item B)"));
    EXPECT_TRUE(HasTrace(kNoGroup));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
}

TEST_F(LibraryNodes, ReservedLabelInsideTheSubmenuIsNoLibraryOfIt)
{
    EXPECT_EQ(Add("lib A", "A", "A", kLibraryLabel), 0U);
    EXPECT_EQ(Add("inner", kLibraryLabel, "Inner", kLibraryLabel, true), 0U);
    Forget();
    Rebuild(With({}));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item Inner)",
                            "AIMenuSuite.RemoveMenuItem(item A)"));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries", "Inner"));
}

}  // namespace
