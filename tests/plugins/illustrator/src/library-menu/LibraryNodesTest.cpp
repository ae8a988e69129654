#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// What a rebuild requires of the node of a library.
class LibraryNodes : public LibraryMenuFixture {
protected:
    static json NodeWith(const char* key, const json& value)
    {
        json node = Node("lib B", "B");
        node[key] = value;
        return node;
    }
    // A tree with three libraries, of which this is the middle one.
    static json WithMiddle(const json& node)
    {
        return With({Node("lib A", "A"), node, Node("lib C", "C")});
    }
};

TEST_F(LibraryNodes, EmptyTitleMakesASeparator)
{
    Rebuild(With({Node("lib A", "A"), Node("line", "")}));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.AddMenuItem((null), \"Select Library\", \"\", 4)"));
    EXPECT_EQ("\"line\"", IdPassedFor(Item("").handle));
    Rebuild(With({}));
    EXPECT_THAT(Submenu(), IsEmpty());
}

TEST_F(LibraryNodes, SkipsANodeWhoseLabelIsNoString)
{
    for (const json& label : {json(5), json(nullptr), json(true), json::array(), json::object()}) {
        Rebuild(WithMiddle(NodeWith("label", label)));
        EXPECT_THAT(Submenu(), ElementsAre("A", "C")) << label;
    }
}

TEST_F(LibraryNodes, DoesNotConvertOtherMembersOfASkippedNode)
{
    json node = NodeWith("label", 5);
    node["id"] = 1;
    node["title"] = 2;
    node["checked"] = "x";
    node["enabled"] = nullptr;
    Rebuild(WithMiddle(node));
    EXPECT_THAT(Submenu(), ElementsAre("A", "C"));
}

TEST_F(LibraryNodes, AcceptsANodeWithoutChild)
{
    json node = Node("lib B", "B");
    node.erase("child");
    Rebuild(WithMiddle(node));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
}

TEST_F(LibraryNodes, AddsNothingForLibrariesThatAreNull)
{
    json tree = With({});
    tree["child"][1]["child"] = nullptr;
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
}

class AbsentMember : public LibraryNodes, public ::testing::WithParamInterface<const char*> {};

TEST_P(AbsentMember, ThrowsAndKeepsTheItemsBefore)
{
    json node = Node("lib B", "B");
    node.erase(GetParam());
    EXPECT_TRUE(RebuildThrows<json::out_of_range>(WithMiddle(node)));
    ExpectAllReleased();
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
    EXPECT_FALSE(HasTraceBeginningWith("AddIllustratorMenu result"));
    ExpectIdsPassed();
    Rebuild(With(Libraries({"D"})));
    EXPECT_THAT(Submenu(), ElementsAre("D"));
}

TEST_P(AbsentMember, ThrowsEvenIfTheLabelIsNoString)
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

TEST_P(WrongMember, ThrowsToTheCaller)
{
    const json node = NodeWith(GetParam().key, json::parse(GetParam().value));
    EXPECT_TRUE(RebuildThrows<json::type_error>(WithMiddle(node)));
    ExpectAllReleased();
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

INSTANTIATE_TEST_SUITE_P(
    Values, WrongMember,
    ::testing::Values(BadMember{"id", "5"}, BadMember{"id", "null"}, BadMember{"title", "5"},
                      BadMember{"title", "null"}, BadMember{"checked", "1"},
                      BadMember{"checked", "\"true\""}, BadMember{"checked", "null"},
                      BadMember{"enabled", "1"}, BadMember{"enabled", "null"}),
    [](const auto& row) { return std::string(row.param.key) + "_" + std::to_string(row.index); });

TEST_F(LibraryNodes, ThrowsForANodeThatIsNoObject)
{
    for (const json& node : {json(5), json("text"), json(nullptr), json::array()}) {
        EXPECT_TRUE(RebuildThrows<json::type_error>(WithMiddle(node))) << node;
        EXPECT_THAT(Submenu(), ElementsAre("A")) << node;
    }
    ExpectAllReleased();
}

TEST_F(LibraryNodes, StopsAtAnItemThatCannotBeAdded)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 2, kHostError);
    Rebuild(With(Libraries({"A", "B", "C"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.AddMenuItem"));
    EXPECT_EQ(1U, CountTraces("AddIllustratorMenu result 4711"));
    ExpectIdsPassed();
}

TEST_F(LibraryNodes, DoesNotReadNodesAfterAnItemThatCannotBeAdded)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_FALSE(RebuildThrows<json::exception>(With({Node("lib A", "A"), json(5)})));
}

TEST_F(LibraryNodes, RemovesTheNullItemOfAFailedOne)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 2, kHostError);
    Rebuild(With(Libraries({"A", "B"})));
    EXPECT_EQ("\"lib B\"", IdPassedFor(nullptr));
    Forget();
    Rebuild(With(Libraries({"A", "B"})));
    EXPECT_THAT(
        host.Calls("AIMenuSuite.RemoveMenuItem"),
        ElementsAre("AIMenuSuite.RemoveMenuItem(item A)", "AIMenuSuite.RemoveMenuItem(null)"));
    EXPECT_EQ(1U, CountTraces("Error 1346458189 in clearing workgroups menu"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    EXPECT_EQ("\"\"", IdPassedFor(nullptr));
}

TEST_F(LibraryNodes, LibraryWithTheReservedLabelReplacesTheSubmenu)
{
    json inner = Node("lib B", "B");
    inner["label"] = kSelectLibrary;
    Rebuild(WithMiddle(inner));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
    Forget();
    // The library has no submenu, so from now on there is no rebuild.
    Rebuild(With({}));
    EXPECT_THAT(host.Calls("AIMenuSuite."), ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item B)"));
    EXPECT_TRUE(HasTrace(kNoGroup));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
}

TEST_F(LibraryNodes, ItemWithTheReservedLabelInTheSubmenuIsNoLibrary)
{
    EXPECT_EQ(0U, Add("lib A", "A", "A", kSelectLibrary));
    EXPECT_EQ(0U, Add("inner", kSelectLibrary, "Inner", kSelectLibrary, true));
    Forget();
    Rebuild(With({}));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item Inner)",
                            "AIMenuSuite.RemoveMenuItem(item A)"));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries", "Inner"));
}

}  // namespace
