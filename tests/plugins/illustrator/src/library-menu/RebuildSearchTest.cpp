#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Which nodes a rebuild takes for the libraries.
class RebuildSearch : public LibraryMenuTest {
protected:
    static json Labelled(json node, const json& label)
    {
        node["label"] = label;
        return node;
    }
};

TEST_F(RebuildSearch, WithoutTheLabelTheTopLevelItemsAreAdded)
{
    Rebuild(Tree({Node("1", "One", {Node("2", "Two")}), Node("3", "Three")}));
    EXPECT_THAT(Submenu(), ElementsAre("One", "Three"));
    EXPECT_EQ(IdPassedFor(Item("Three").handle), "\"3\"");
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, TheTopLevelItemsGoAgainWithTheNextRebuild)
{
    Rebuild(Tree({Node("1", "One")}));
    Rebuild(With(Libraries({"A"})));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildSearch, LabelBelowTheTopLevelDoesNotCount)
{
    const json nested = Labelled(Node("x", "X", Libraries({"A"})), kLibraryLabel);
    Rebuild(Tree({Node("1", "One", {nested})}));
    EXPECT_THAT(Submenu(), ElementsAre("One"));
}

TEST_F(RebuildSearch, FirstOfTheLabelCounts)
{
    Rebuild(Tree({Labelled(Node("x", "X", Libraries({"A"})), kLibraryLabel),
                  Labelled(Node("y", "Y", Libraries({"B"})), kLibraryLabel)}));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildSearch, LabelIsComparedByteForByte)
{
    Rebuild(Tree({Labelled(Node("x", "X", Libraries({"A"})), "select library")}));
    EXPECT_THAT(Submenu(), ElementsAre("X"));
}

TEST_F(RebuildSearch, TitleDoesNotCount)
{
    Rebuild(Tree({Node("x", kLibraryLabel, Libraries({"A"}))}));
    EXPECT_THAT(Submenu(), ElementsAre(kLibraryLabel));
}

TEST_F(RebuildSearch, EmptyTopLevelAddsNothingAndTellsNothing)
{
    Rebuild(Tree({}));
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, ItemWithoutALabelEndsTheSearchSilently)
{
    json without = Node("0", "Zero");
    without.erase("label");
    json tree = With(Libraries({"A"}));
    tree["child"].insert(tree["child"].begin(), without);
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, ItemWithoutALabelBehindTheLibrariesIsNotReached)
{
    json without = Node("0", "Zero");
    without.erase("label");
    json tree = With(Libraries({"A"}));
    tree["child"].push_back(without);
    Rebuild(tree);
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

class BadTopLevelItem : public RebuildSearch, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadTopLevelItem, EndsTheSearchSilently)
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

TEST_F(RebuildSearch, LibrariesWithoutChildAddNothingSilently)
{
    json tree = With({});
    tree["child"][1].erase("child");
    Rebuild(tree);
    EXPECT_THAT(Submenu(), IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("Error "));
}

TEST_F(RebuildSearch, OldItemsAreOutBeforeTheTextIsRead)
{
    Rebuild(With(Libraries({"A", "B"})));
    Forget();
    RebuildFromText("no JSON");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.RemoveMenuItem"), 2U);
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
}

}  // namespace
