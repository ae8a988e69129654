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
    EXPECT_EQ(&sCalls, context);
    sCalls.push_back(std::string(parentID ? parentID : "(top)") + " > " + id + "|" + label + "|" +
                     title + (checked ? " checked" : "") + (enabled ? " enabled" : "") +
                     (hasSubmenu ? " submenu" : ""));
    return label == sRefused ? 9U : 0U;
}

MenuItemHelp* GetContext() { return reinterpret_cast<MenuItemHelp*>(&sCalls); }

class MenuJsonTest : public testing::Test {
protected:
    void SetUp() override
    {
        sCalls.clear();
        sRefused.clear();
    }
};

TEST_F(MenuJsonTest, ParentsComeBeforeTheirChildren)
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

TEST_F(MenuJsonTest, DocumentEnablesItsItems)
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

TEST_F(MenuJsonTest, AllNodesHaveAllSixKeys)
{
    plugincore::MenuState state;
    state.libraries = {{"bytes \xff", "/bytes \xff"}};
    std::vector<json> open = {json::parse(plugincore::MakeMenus(state))};
    size_t count = 0;
    for (; !open.empty(); ++count) {
        const json node = open.back();
        open.pop_back();
        EXPECT_EQ(6U, node.size());
        for (const char* key : {"id", "label", "title"}) EXPECT_TRUE(node.at(key).is_string());
        for (const char* key : {"checked", "enabled"}) EXPECT_TRUE(node.at(key).is_boolean());
        for (const json& child : node.at("child")) open.push_back(child);
    }
    EXPECT_EQ(16U, count);
}

TEST_F(MenuJsonTest, LibrarySubmenuExistsWithoutLibraries)
{
    plugincore::AddMenus(plugincore::MakeMenus({}), Record, GetContext());
    EXPECT_EQ("(top) > selectLibrary|Select Library|Select Library enabled submenu", sCalls[4]);
}

TEST_F(MenuJsonTest, SkipsTheChildrenOfARefusedItem)
{
    sRefused = "Font Activation";
    testing::internal::CaptureStderr();
    plugincore::AddMenus(plugincore::MakeMenus({}), Record, GetContext());
    EXPECT_EQ(11U, sCalls.size());
    EXPECT_EQ("PluginCore: the host refused the menu item \"Font Activation\" with status 9\n",
              testing::internal::GetCapturedStderr());
}

TEST_F(MenuJsonTest, RejectsAnyOtherTextBeforeTheFirstCall)
{
    for (const char* text : {"", "[]", "{", "{\"child\":[]}", "{\"child\":[{\"id\":1}]}"}) {
        EXPECT_THROW(plugincore::AddMenus(text, Record, GetContext()), Failure) << text;
    }
    EXPECT_THAT(sCalls, IsEmpty());
}

TEST_F(MenuJsonTest, GetMenusReturnsTheSizeFirst)
{
    const FontTestHome home;
    std::filesystem::create_directories(home.GetLibrary() / "House");
    const Framework core;
    size_t size = 0;
    ASSERT_EQ(plugincore::StatusCodes::kIndexOutOfRange, core.pGetMenus("", nullptr, &size));
    std::string text(size, '\0');
    ASSERT_EQ(0U, core.pGetMenus("", text.data(), &size));
    plugincore::MenuState state;
    state.libraries = {{"House", home.GetLibrary() / "House"}};
    EXPECT_EQ(text, plugincore::MakeMenus(state) + std::string(1, '\0'));
    EXPECT_EQ(0U, core.pCreateMenusFromJSONBuffer(text.c_str(), Record, GetContext()));
    EXPECT_EQ(15U, sCalls.size());
    size = text.size() - 1;
    EXPECT_EQ(plugincore::StatusCodes::kIndexOutOfRange, core.pGetMenus("", text.data(), &size));
}

}  // namespace
