#include "plugin-core/menus/MenuJson.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "CoreTestHome.h"
#include "plugin-core/menus/MenuModel.h"
#include "plugin-core/storage/Failure.h"

using nlohmann::json;
using plugincore::Failure;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> sCalls;
std::string sRefused;

unsigned int Record(const char* id, const char* label, const char* title, bool checked,
                    bool enabled, bool hasSubmenu, const char* parentID, void* context)
{
    EXPECT_EQ(context, &sCalls);
    sCalls.push_back(std::string(parentID ? parentID : "(top)") + " > " + id + "|" + label + "|" +
                     title + (checked ? " checked" : "") + (enabled ? " enabled" : "") +
                     (hasSubmenu ? " submenu" : ""));
    return label == sRefused ? 9U : 0U;
}

MenuItemHelp* GetContext() { return reinterpret_cast<MenuItemHelp*>(&sCalls); }

class MenusTest : public testing::Test {
protected:
    void SetUp() override
    {
        sCalls.clear();
        sRefused.clear();
    }
};

TEST_F(MenusTest, ParentsComeBeforeTheirChildren)
{
    plugincore::MenuState state;
    state.libraries = {{"House", "/fonts/House"}, {"Select Library", "/fonts/Select Library"}};
    state.selectedLibrary = "/fonts/House";
    plugincore::AddMenus(plugincore::MakeMenus(state), Record, GetContext());
    const std::string library = "Select Library > library:/fonts/";
    EXPECT_THAT(
        sCalls,
        ElementsAre("(top) > activateFonts|Activate Document Fonts|Activate Document Fonts",
                    "(top) > deactivateUnused|Deactivate Unused Fonts|Deactivate Unused Fonts"
                    " enabled",
                    "(top) > showMissing|Show Missing Fonts|Show Missing Fonts",
                    "(top) > separator:libraries|separator:libraries| enabled",
                    "(top) > selectLibrary|Select Library|Select Library enabled submenu",
                    library + "House|House|House checked enabled",
                    library + "Select Library|library:/fonts/Select Library|Select Library enabled",
                    "(top) > addFolder|Add Font Folder...|Add Font Folder... enabled",
                    "(top) > revealLibrary|Reveal Font Library|Reveal Font Library enabled",
                    "(top) > separator:preferences|separator:preferences| enabled",
                    "(top) > activation|Font Activation|Font Activation enabled submenu",
                    "Font Activation > activation:1|Activate Automatically|Activate Automatically"
                    " checked enabled",
                    "Font Activation > activation:2|Ask Before Activating|Ask Before Activating"
                    " enabled",
                    "Font Activation > activation:0|Activation Off|Activation Off enabled",
                    "(top) > dialogSuppression|Hold Back Missing Fonts Dialog|Hold Back Missing"
                    " Fonts Dialog checked enabled",
                    "(top) > about|About Corvanta Fonts|About Corvanta Fonts enabled"));
}

TEST_F(MenusTest, ADocumentEnablesItsItems)
{
    plugincore::MenuState state;
    state.hasDocument = true;
    state.suppressesDialog = false;
    state.mode = plugincore::ActivationMode::kOff;
    plugincore::AddMenus(plugincore::MakeMenus(state), Record, GetContext());
    EXPECT_THAT(sCalls[0], testing::EndsWith(" enabled"));
    EXPECT_THAT(sCalls[2], testing::EndsWith(" enabled"));
    EXPECT_THAT(sCalls, testing::Contains(testing::HasSubstr("activation:0|Activation Off|"
                                                             "Activation Off checked")));
    EXPECT_THAT(sCalls, testing::Not(testing::Contains(testing::HasSubstr("Dialog checked"))));
}

TEST_F(MenusTest, AllNodesHaveAllSixKeys)
{
    plugincore::MenuState state;
    state.libraries = {{"bytes \xff", "/bytes \xff"}};
    std::vector<json> open = {json::parse(plugincore::MakeMenus(state))};
    size_t count = 0;
    for (; !open.empty(); ++count) {
        const json node = open.back();
        open.pop_back();
        EXPECT_EQ(node.size(), 6U);
        for (const char* key : {"id", "label", "title"}) EXPECT_TRUE(node.at(key).is_string());
        for (const char* key : {"checked", "enabled"}) EXPECT_TRUE(node.at(key).is_boolean());
        for (const json& child : node.at("child")) open.push_back(child);
    }
    EXPECT_EQ(count, 16U);
}

TEST_F(MenusTest, TheLibrarySubmenuIsThereWithoutLibraries)
{
    plugincore::AddMenus(plugincore::MakeMenus({}), Record, GetContext());
    EXPECT_EQ(sCalls[4], "(top) > selectLibrary|Select Library|Select Library enabled submenu");
}

TEST_F(MenusTest, TheChildrenOfARefusedItemAreLeftOut)
{
    sRefused = "Font Activation";
    testing::internal::CaptureStderr();
    plugincore::AddMenus(plugincore::MakeMenus({}), Record, GetContext());
    EXPECT_EQ(sCalls.size(), 11U);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "PluginCore: the host refused the menu item \"Font Activation\" with status 9\n");
}

TEST_F(MenusTest, AnyOtherTextIsRefusedBeforeTheFirstCall)
{
    for (const char* text : {"", "[]", "{", "{\"child\":[]}", "{\"child\":[{\"id\":1}]}"})
        EXPECT_THROW(plugincore::AddMenus(text, Record, GetContext()), Failure) << text;
    EXPECT_THAT(sCalls, IsEmpty());
}

TEST_F(MenusTest, TheTextComesInTwoSteps)
{
    const FontTestHome home;
    std::filesystem::create_directories(home.GetLibrary() / "House");
    const Framework core;
    size_t size = 0;
    ASSERT_EQ(core.pGetMenus("", nullptr, &size), 0x0C000000U);
    std::string text(size, '\0');
    ASSERT_EQ(core.pGetMenus("", text.data(), &size), 0U);
    plugincore::MenuState state;
    state.libraries = {{"House", home.GetLibrary() / "House"}};
    EXPECT_EQ(text, plugincore::MakeMenus(state) + std::string(1, '\0'));
    EXPECT_EQ(core.pCreateMenusFromJSONBuffer(text.c_str(), Record, GetContext()), 0U);
    EXPECT_EQ(sCalls.size(), 15U);
    size = text.size() - 1;
    EXPECT_EQ(core.pGetMenus("", text.data(), &size), 0x0C000000U);
}

}  // namespace
