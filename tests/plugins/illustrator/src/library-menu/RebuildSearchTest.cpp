#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Which nodes a rebuild uses as the libraries.
class RebuildSearch : public LibraryMenuFixture {
protected:
    static json Labelled(json node, const json& label)
    {
        node["label"] = label;
        return node;
    }
};

TEST_F(RebuildSearch, AddsTheTopLevelItemsWithoutTheLabel)
{
    Rebuild(Tree({Node("1", "One", {Node("2", "Two")}), Node("3", "Three")}));
    EXPECT_THAT(Submenu(), ElementsAre("One", "Three"));
    EXPECT_EQ("\"3\"", IdPassedFor(Item("Three").handle));
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, NextRebuildRemovesTheTopLevelItems)
{
    Rebuild(Tree({Node("1", "One")}));
    Rebuild(With(Libraries({"A"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildSearch, IgnoresTheLabelBelowTheTopLevel)
{
    const json nested = Labelled(Node("x", "X", Libraries({"A"})), kSelectLibrary);
    Rebuild(Tree({Node("1", "One", {nested})}));
    EXPECT_THAT(Submenu(), ElementsAre("One"));
}

TEST_F(RebuildSearch, UsesTheFirstNodeWithTheLabel)
{
    Rebuild(Tree({Labelled(Node("x", "X", Libraries({"A"})), kSelectLibrary),
                  Labelled(Node("y", "Y", Libraries({"B"})), kSelectLibrary)}));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildSearch, ComparesTheLabelByteForByte)
{
    Rebuild(Tree({Labelled(Node("x", "X", Libraries({"A"})), "select library")}));
    EXPECT_THAT(Submenu(), ElementsAre("X"));
}

TEST_F(RebuildSearch, IgnoresTheTitle)
{
    Rebuild(Tree({Node("x", kSelectLibrary, Libraries({"A"}))}));
    EXPECT_THAT(Submenu(), ElementsAre(kSelectLibrary));
}

TEST_F(RebuildSearch, AddsNothingSilentlyForAnEmptyTopLevel)
{
    Rebuild(Tree({}));
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, AddsNothingSilentlyAfterAnItemWithoutALabel)
{
    json without = Node("0", "Zero");
    without.erase("label");
    json tree = With(Libraries({"A"}));
    tree["child"].insert(tree["child"].begin(), without);
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, DoesNotReachAnItemWithoutALabelAfterTheLibraries)
{
    json without = Node("0", "Zero");
    without.erase("label");
    json tree = With(Libraries({"A"}));
    tree["child"].push_back(without);
    Rebuild(tree);
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

class BadTopLevelItem : public RebuildSearch, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadTopLevelItem, BeforeTheLibrariesEndsTheSearchSilently)
{
    json tree = With(Libraries({"A"}));
    tree["child"].insert(tree["child"].begin(), json::parse(GetParam()));
    Rebuild(With(Libraries({"old"})));
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

INSTANTIATE_TEST_SUITE_P(Items, BadTopLevelItem,
                         ::testing::Values("{}", R"({"label":5})", R"({"label":null})",
                                           R"({"id":"x"})", "5", "null", "[]", R"(["label"])",
                                           R"("Select Library")"));

TEST_F(RebuildSearch, AddsNothingSilentlyForLibrariesWithoutChild)
{
    json tree = With({});
    tree["child"][1].erase("child");
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, RemovesTheOldItemsBeforeItReadsTheText)
{
    Rebuild(With(Libraries({"A", "B"})));
    Forget();
    RebuildFromText("no JSON");
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.RemoveMenuItem"));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
}

}  // namespace
