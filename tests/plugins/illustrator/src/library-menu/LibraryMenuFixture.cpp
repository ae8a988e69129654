#include "LibraryMenuFixture.h"

LibraryMenuFixture::LibraryMenuFixture()
{
    EXPECT_EQ(0U, Add("libraries", kSelectLibrary, "Libraries", nullptr, true));
    Forget();
}

std::vector<json> LibraryMenuFixture::Libraries(const std::vector<std::string>& titles)
{
    std::vector<json> nodes;
    for (const std::string& title : titles) nodes.push_back(Node("lib " + title, title));
    return nodes;
}

json LibraryMenuFixture::With(const std::vector<json>& nodes)
{
    json libraries = Node("libraries", "Libraries", nodes);
    libraries["label"] = kSelectLibrary;
    return Tree({Node("first", "First"), libraries, Node("last", "Last")});
}

void LibraryMenuFixture::Rebuild(const json& tree) { RebuildFromText(tree.dump()); }

void LibraryMenuFixture::RebuildFromText(const std::string& text)
{
    core->menus = text;
    EXPECT_NO_THROW(RebuildWorkgroupsMenu());
    ExpectAllReleased();
}

std::vector<std::string> LibraryMenuFixture::Submenu()
{
    std::vector<std::string> texts;
    for (const ScriptedMenuItem& item : host.menuItems) {
        if (!item.removed && item.group == kSelectLibrary) texts.push_back(item.text);
    }
    return texts;
}

void LibraryMenuFixture::ExpectIdsPassed()
{
    for (const std::string& text : Submenu()) {
        EXPECT_EQ("\"lib " + text + "\"", IdPassedFor(Item(text).handle));
    }
}

void LibraryMenuFixture::ExpectAllReleased()
{
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
    EXPECT_EQ(0U, host.LiveStrings());
    EXPECT_EQ(0U, host.LivePaths());
}
