#include "MenuFixture.h"

using ::testing::HasSubstr;

namespace {

constexpr unsigned int kNotFound = CoreErrorCodes::kUnknownError;

// The search needs neither the host nor PluginCore.
class MenuSearch : public ::testing::Test {
protected:
    unsigned int Find(const json& node, const char* key, const char* value)
    {
        return GetMenuObject(node, key, value, found);
    }
    // The message of the exception that the search throws.
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

TEST_F(MenuSearch, FindsTheRoot)
{
    const json tree = Tree({Node("1", "One")});
    EXPECT_EQ(0U, Find(tree, "id", "root"));
    EXPECT_EQ(tree, found);
}

TEST_F(MenuSearch, FindsANodeOfTheTopLevel)
{
    EXPECT_EQ(0U, Find(Tree({Node("1", "One"), Node("2", "Two")}), "title", "Two"));
    EXPECT_EQ(Node("2", "Two"), found);
}

TEST_F(MenuSearch, FindsANestedNode)
{
    const json tree = Tree({Node("1", "One", {Node("2", "Two", {Node("3", "Three")})})});
    EXPECT_EQ(0U, Find(tree, "id", "3"));
    EXPECT_EQ("Three", found.at("title"));
}

TEST_F(MenuSearch, CopiesTheNodeWithItsChildren)
{
    const json tree = Tree({Node("1", "One", {Node("2", "Two")})});
    EXPECT_EQ(0U, Find(tree, "id", "1"));
    EXPECT_EQ(Node("1", "One", {Node("2", "Two")}), found);
}

TEST_F(MenuSearch, ReturnsUnknownAndKeepsTheResultWithoutAMatch)
{
    EXPECT_EQ(kNotFound, Find(Tree({Node("1", "One", {Node("2", "Two")})}), "id", "9"));
    EXPECT_EQ("untouched", found);
}

TEST_F(MenuSearch, FindsTheFirstInDocumentOrder)
{
    const json tree = Tree({Node("1", "One", {Node("same", "in depth")}), Node("same", "on top")});
    EXPECT_EQ(0U, Find(tree, "id", "same"));
    EXPECT_EQ("in depth", found.at("title"));
}

TEST_F(MenuSearch, MatchHidesItsChildren)
{
    const json tree = Tree({Node("same", "outer", {Node("same", "inner")})});
    EXPECT_EQ(0U, Find(tree, "id", "same"));
    EXPECT_EQ("outer", found.at("title"));
}

TEST_F(MenuSearch, DoesNotReadTheChildrenOfAMatch)
{
    const json tree = Tree({Node("1", "One", {json::object({{"child", json::array()}})})});
    EXPECT_EQ(0U, Find(tree, "id", "1"));
}

TEST_F(MenuSearch, ContinuesAfterASubtreeWithoutAMatch)
{
    const json tree = Tree({Node("1", "One", {Node("2", "Two"), Node("3", "Three")}),
                            Node("4", "Four", {Node("5", "Five")})});
    EXPECT_EQ(0U, Find(tree, "id", "5"));
}

TEST_F(MenuSearch, ComparesTextsByteForByte)
{
    const json tree = Tree({Node("a", "Title"), Node("b", "title"), Node("c", "title ")});
    EXPECT_EQ(0U, Find(tree, "title", "title"));
    EXPECT_EQ("b", found.at("id"));
    EXPECT_EQ(kNotFound, Find(tree, "title", "TITLE"));
}

TEST_F(MenuSearch, FindsAnEmptyText)
{
    EXPECT_EQ(0U, Find(Tree({Node("1", "One"), Node("line", "")}), "title", ""));
    EXPECT_EQ("line", found.at("id"));
}

TEST_F(MenuSearch, SkipsANodeWhoseKeyIsANumberWithItsChildren)
{
    json number = Node("1", "One", {Node("2", "Two")});
    number["id"] = 1;
    const json tree = Tree({number, Node("3", "Three")});
    EXPECT_EQ(kNotFound, Find(tree, "id", "2"));
    EXPECT_EQ(0U, Find(tree, "id", "3"));
}

TEST_F(MenuSearch, SkipsANodeWhoseKeyIsNullWithItsChildren)
{
    json null = Node("1", "One", {Node("2", "Two")});
    null["id"] = nullptr;
    EXPECT_EQ(kNotFound, Find(Tree({null}), "id", "2"));
}

TEST_F(MenuSearch, DoesNotReadTheChildrenOfASkippedNode)
{
    json number = Node("1", "One", {json::object({{"child", json::array()}})});
    number["id"] = 1;
    EXPECT_EQ(kNotFound, Find(Tree({number}), "id", "2"));
}

TEST_F(MenuSearch, ThrowsForAMissingKey)
{
    EXPECT_THAT(Thrown(json::object({{"child", json::array()}}), "title", "x"),
                HasSubstr("key 'title' not found"));
}

TEST_F(MenuSearch, ThrowsForAMissingKeyBeforeTheMatch)
{
    json without = Node("1", "One");
    without.erase("id");
    EXPECT_THAT(Thrown(Tree({without, Node("2", "Two")}), "id", "2"),
                HasSubstr("key 'id' not found"));
}

TEST_F(MenuSearch, DoesNotReachAMissingKeyAfterTheMatch)
{
    json without = Node("1", "One");
    without.erase("id");
    EXPECT_EQ(0U, Find(Tree({Node("2", "Two"), without}), "id", "2"));
}

TEST_F(MenuSearch, TreatsAMissingChildMemberAsNoChildren)
{
    json leaf = Node("1", "One");
    leaf.erase("child");
    const json tree = Tree({leaf, Node("2", "Two")});
    EXPECT_EQ(0U, Find(tree, "id", "1"));
    EXPECT_EQ(leaf, found);
    EXPECT_EQ(0U, Find(tree, "id", "2"));
    EXPECT_EQ(kNotFound, Find(leaf, "id", "2"));
}

TEST_F(MenuSearch, IgnoresAChildMemberThatIsNoArray)
{
    for (const json& child : {json(Node("2", "Two")), json("text"), json(5), json(nullptr)}) {
        json node = Node("1", "One");
        node["child"] = child;
        EXPECT_EQ(kNotFound, Find(Tree({node}), "id", "2")) << child;
    }
}

TEST_F(MenuSearch, SearchesAnArrayInOrder)
{
    const json list = json::array({Node("1", "One"), Node("2", "Two"), Node("2", "Later")});
    EXPECT_EQ(0U, Find(list, "id", "2"));
    EXPECT_EQ("Two", found.at("title"));
}

TEST_F(MenuSearch, SkipsElementsThatAreNoObjects)
{
    const json list = json::array(
        {1, "1", nullptr, json::array({Node("1", "in an array")}), Node("1", "found"), true});
    EXPECT_EQ(0U, Find(list, "id", "1"));
    EXPECT_EQ("found", found.at("title"));
    EXPECT_EQ(kNotFound, Find(list, "id", "2"));
}

TEST_F(MenuSearch, ReturnsUnknownForAnArrayWithoutObjects)
{
    EXPECT_EQ(kNotFound, Find(json::array(), "id", "1"));
    EXPECT_EQ(kNotFound, Find(json::array({1, "1", json::array()}), "id", "1"));
}

TEST_F(MenuSearch, ReturnsUnknownForOtherTypes)
{
    for (const json& node : {json(nullptr), json("id"), json(1), json(1.5), json(true)}) {
        EXPECT_EQ(kNotFound, Find(node, "id", "id")) << node;
    }
    EXPECT_EQ("untouched", found);
}

TEST_F(MenuSearch, DoesNotChangeTheTree)
{
    json leaf = Node("1", "One");
    leaf.erase("child");
    const json tree = Tree({leaf, Node("2", "Two")});
    const std::string before = tree.dump();
    EXPECT_EQ(kNotFound, Find(tree, "id", "9"));
    EXPECT_EQ(before, tree.dump());
}

}  // namespace
