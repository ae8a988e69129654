#include "MenuFixture.h"

using ::testing::HasSubstr;

namespace {

constexpr unsigned int kNotFound = 0x15000000;  // CoreErrorCodes::kUnknownError

// The search needs neither the host nor PluginCore.
class MenuSearch : public ::testing::Test {
protected:
    unsigned int Find(const json& node, const char* key, const char* value)
    {
        return GetMenuObject(node, key, value, found);
    }
    // The text of what is thrown.
    std::string Thrown(const json& node, const char* key, const char* value)
    {
        try {
            (void)Find(node, key, value);
        } catch (const json::out_of_range& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    json found = "untouched";
};

TEST_F(MenuSearch, RootItselfIsFound)
{
    const json tree = Tree({Node("1", "One")});
    EXPECT_EQ(Find(tree, "id", "root"), 0U);
    EXPECT_EQ(found, tree);
}

TEST_F(MenuSearch, NodeOfTheTopLevelIsFound)
{
    EXPECT_EQ(Find(Tree({Node("1", "One"), Node("2", "Two")}), "title", "Two"), 0U);
    EXPECT_EQ(found, Node("2", "Two"));
}

TEST_F(MenuSearch, NestedNodeIsFound)
{
    const json tree = Tree({Node("1", "One", {Node("2", "Two", {Node("3", "Three")})})});
    EXPECT_EQ(Find(tree, "id", "3"), 0U);
    EXPECT_EQ(found.at("title"), "Three");
}

TEST_F(MenuSearch, FoundNodeComesWithItsChildren)
{
    const json tree = Tree({Node("1", "One", {Node("2", "Two")})});
    EXPECT_EQ(Find(tree, "id", "1"), 0U);
    EXPECT_EQ(found, Node("1", "One", {Node("2", "Two")}));
}

TEST_F(MenuSearch, NothingFoundIsUnknownAndLeavesTheResult)
{
    EXPECT_EQ(Find(Tree({Node("1", "One", {Node("2", "Two")})}), "id", "9"), kNotFound);
    EXPECT_EQ(found, "untouched");
}

TEST_F(MenuSearch, FirstInDocumentOrderWins)
{
    const json tree = Tree({Node("1", "One", {Node("same", "in depth")}), Node("same", "on top")});
    EXPECT_EQ(Find(tree, "id", "same"), 0U);
    EXPECT_EQ(found.at("title"), "in depth");
}

TEST_F(MenuSearch, MatchHidesItsChildren)
{
    const json tree = Tree({Node("same", "outer", {Node("same", "inner")})});
    EXPECT_EQ(Find(tree, "id", "same"), 0U);
    EXPECT_EQ(found.at("title"), "outer");
}

TEST_F(MenuSearch, ChildrenOfAMatchAreNotEvenRead)
{
    const json tree = Tree({Node("1", "One", {json::object({{"child", json::array()}})})});
    EXPECT_EQ(Find(tree, "id", "1"), 0U);
}

TEST_F(MenuSearch, SearchGoesOnBehindASubtreeWithoutAMatch)
{
    const json tree = Tree({Node("1", "One", {Node("2", "Two"), Node("3", "Three")}),
                            Node("4", "Four", {Node("5", "Five")})});
    EXPECT_EQ(Find(tree, "id", "5"), 0U);
}

TEST_F(MenuSearch, TextsAreComparedByteForByte)
{
    const json tree = Tree({Node("a", "Title"), Node("b", "title"), Node("c", "title ")});
    EXPECT_EQ(Find(tree, "title", "title"), 0U);
    EXPECT_EQ(found.at("id"), "b");
    EXPECT_EQ(Find(tree, "title", "TITLE"), kNotFound);
}

TEST_F(MenuSearch, EmptyTextMatchesAnEmptyText)
{
    EXPECT_EQ(Find(Tree({Node("1", "One"), Node("line", "")}), "title", ""), 0U);
    EXPECT_EQ(found.at("id"), "line");
}

TEST_F(MenuSearch, NodeWhoseKeyHoldsANumberIsSkippedWithItsChildren)
{
    json number = Node("1", "One", {Node("2", "Two")});
    number["id"] = 1;
    const json tree = Tree({number, Node("3", "Three")});
    EXPECT_EQ(Find(tree, "id", "2"), kNotFound);
    EXPECT_EQ(Find(tree, "id", "3"), 0U);
}

TEST_F(MenuSearch, NodeWhoseKeyIsNullIsSkippedWithItsChildren)
{
    json null = Node("1", "One", {Node("2", "Two")});
    null["id"] = nullptr;
    EXPECT_EQ(Find(Tree({null}), "id", "2"), kNotFound);
}

TEST_F(MenuSearch, ChildrenOfASkippedNodeAreNotRead)
{
    json number = Node("1", "One", {json::object({{"child", json::array()}})});
    number["id"] = 1;
    EXPECT_EQ(Find(Tree({number}), "id", "2"), kNotFound);
}

TEST_F(MenuSearch, AbsentKeyIsThrown)
{
    EXPECT_THAT(Thrown(json::object({{"child", json::array()}}), "title", "x"),
                HasSubstr("key 'title' not found"));
}

TEST_F(MenuSearch, AbsentKeyBeforeTheMatchIsThrown)
{
    json without = Node("1", "One");
    without.erase("id");
    EXPECT_THAT(Thrown(Tree({without, Node("2", "Two")}), "id", "2"),
                HasSubstr("key 'id' not found"));
}

TEST_F(MenuSearch, AbsentKeyBehindTheMatchIsNotReached)
{
    json without = Node("1", "One");
    without.erase("id");
    EXPECT_EQ(Find(Tree({Node("2", "Two"), without}), "id", "2"), 0U);
}

TEST_F(MenuSearch, NodeWithoutChildIsOneWithoutChildren)
{
    json leaf = Node("1", "One");
    leaf.erase("child");
    const json tree = Tree({leaf, Node("2", "Two")});
    EXPECT_EQ(Find(tree, "id", "1"), 0U);
    EXPECT_EQ(found, leaf);
    EXPECT_EQ(Find(tree, "id", "2"), 0U);
    EXPECT_EQ(Find(leaf, "id", "2"), kNotFound);
}

TEST_F(MenuSearch, ChildThatIsNoArrayIsNoChild)
{
    for (const json& child : {json(Node("2", "Two")), json("text"), json(5), json(nullptr)}) {
        json node = Node("1", "One");
        node["child"] = child;
        EXPECT_EQ(Find(Tree({node}), "id", "2"), kNotFound) << child;
    }
}

TEST_F(MenuSearch, ArrayIsSearchedInOrder)
{
    const json list = json::array({Node("1", "One"), Node("2", "Two"), Node("2", "Later")});
    EXPECT_EQ(Find(list, "id", "2"), 0U);
    EXPECT_EQ(found.at("title"), "Two");
}

TEST_F(MenuSearch, ElementsThatAreNoObjectsAreSkipped)
{
    const json list = json::array(
        {1, "1", nullptr, json::array({Node("1", "in an array")}), Node("1", "found"), true});
    EXPECT_EQ(Find(list, "id", "1"), 0U);
    EXPECT_EQ(found.at("title"), "found");
    EXPECT_EQ(Find(list, "id", "2"), kNotFound);
}

TEST_F(MenuSearch, ArrayWithoutObjectsIsUnknown)
{
    EXPECT_EQ(Find(json::array(), "id", "1"), kNotFound);
    EXPECT_EQ(Find(json::array({1, "1", json::array()}), "id", "1"), kNotFound);
}

TEST_F(MenuSearch, OtherTypesAreUnknown)
{
    for (const json& node : {json(nullptr), json("id"), json(1), json(1.5), json(true)}) {
        EXPECT_EQ(Find(node, "id", "id"), kNotFound) << node;
    }
    EXPECT_EQ(found, "untouched");
}

TEST_F(MenuSearch, TreeStaysAsItWas)
{
    json leaf = Node("1", "One");
    leaf.erase("child");
    const json tree = Tree({leaf, Node("2", "Two")});
    const std::string before = tree.dump();
    EXPECT_EQ(Find(tree, "id", "9"), kNotFound);
    EXPECT_EQ(tree.dump(), before);
}

}  // namespace
