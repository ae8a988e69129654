#include "LibraryMenuFixture.h"

LibraryMenuTest::LibraryMenuTest()
{
    EXPECT_EQ(Add("libraries", kLibraryLabel, "Libraries", nullptr, true), 0U);
    Forget();
}

std::vector<json> LibraryMenuTest::Libraries(const std::vector<std::string>& titles)
{
    std::vector<json> nodes;
    for (const std::string& title : titles) nodes.push_back(Node("lib " + title, title));
    return nodes;
}

json LibraryMenuTest::With(const std::vector<json>& nodes)
{
    json libraries = Node("libraries", "Libraries", nodes);
    libraries["label"] = kLibraryLabel;
    return Tree({Node("first", "First"), libraries, Node("last", "Last")});
}

void LibraryMenuTest::Rebuild(const json& tree) { RebuildFromText(tree.dump()); }

void LibraryMenuTest::RebuildFromText(const std::string& text)
{
    core->menus = text;
    EXPECT_NO_THROW(RebuildWorkgroupsMenu());
    ExpectNothingIsOut();
}

std::vector<std::string> LibraryMenuTest::Submenu()
{
    std::vector<std::string> texts;
    for (const ScriptedMenuItem& item : host.menuItems) {
        if (!item.removed && item.group == kLibraryLabel) texts.push_back(item.text);
    }
    return texts;
}

void LibraryMenuTest::ExpectIdsPassed()
{
    for (const std::string& text : Submenu()) {
        EXPECT_EQ(IdPassedFor(Item(text).handle), "\"lib " + text + "\"");
    }
}

void LibraryMenuTest::ExpectNothingIsOut()
{
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
    EXPECT_EQ(host.LiveStrings(), 0U);
    EXPECT_EQ(host.LivePaths(), 0U);
}
