#include "Menus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CoreTestHome.h"
#include "StatusCodes.h"

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
    plugincore::AddMenus(plugincore::MakeMenus({"/fonts/House"}), Record, GetContext());
    EXPECT_THAT(sCalls,
                ElementsAre("(top) > selectLibrary|Select Library|Select Library enabled submenu",
                            "Select Library > library:/fonts/House|House|House checked enabled",
                            "(top) > about|About Corvanta Fonts|About Corvanta Fonts enabled"));
}

TEST_F(MenusTest, TheLibrarySubmenuIsThereWithoutLibraries)
{
    plugincore::AddMenus(plugincore::MakeMenus({}), Record, GetContext());
    EXPECT_EQ(sCalls.front(),
              "(top) > selectLibrary|Select Library|Select Library enabled submenu");
}

TEST_F(MenusTest, TheChildrenOfARefusedItemAreLeftOut)
{
    sRefused = "Select Library";
    testing::internal::CaptureStderr();
    plugincore::AddMenus(plugincore::MakeMenus({"/fonts/House"}), Record, GetContext());
    EXPECT_EQ(sCalls.size(), 2U);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "PluginCore: the host refused the menu item \"Select Library\" with status 9\n");
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
    const Framework core;
    size_t size = 0;
    ASSERT_EQ(core.pGetMenus("", nullptr, &size), 0x0C000000U);
    std::string text(size, '\0');
    ASSERT_EQ(core.pGetMenus("", text.data(), &size), 0U);
    EXPECT_EQ(text, plugincore::MakeMenus({home.GetLibrary()}) + std::string(1, '\0'));
    EXPECT_EQ(core.pCreateMenusFromJSONBuffer(text.c_str(), Record, GetContext()), 0U);
    EXPECT_EQ(sCalls.size(), 3U);
    size = text.size() - 1;
    EXPECT_EQ(core.pGetMenus("", text.data(), &size), 0x0C000000U);
}

}  // namespace
