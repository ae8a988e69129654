#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "CoreSession.h"
#include "plugin-core/storage/Settings.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Standard input comes from this text, as from a user on the terminal.
class Terminal {
public:
    explicit Terminal(const std::string& text) : mInput(text)
    {
        setenv("CORVANTA_INTERACTIVE", "1", 1);
    }
    ~Terminal()
    {
        std::cin.rdbuf(mBefore);
        std::cin.clear();
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

private:
    std::istringstream mInput;
    std::streambuf* mBefore = std::cin.rdbuf(mInput.rdbuf());
};

class MenuCommandsTest : public testing::Test {
protected:
    json FindNode(const std::string& id, const std::string& path = "") const
    {
        std::vector<json> open = {json::parse(mSession.GetMenus(path))};
        while (!open.empty()) {
            const json node = open.back();
            open.pop_back();
            if (node.at("id") == id) return node;
            for (const json& child : node.at("child")) open.push_back(child);
        }
        return {};
    }
    bool IsChecked(const std::string& id) const { return FindNode(id).at("checked").get<bool>(); }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
    fs::path mSettings = mSession.home.GetPath() / "config/Corvanta/settings.json";
};

TEST_F(MenuCommandsTest, ActivatesTheDocumentsFontsEvenWithActivationOff)
{
    FontTestHome::WriteFile(mSettings, "{\"FontActivation\":\"0\"}");
    ASSERT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans", "Nowhere"})), "");
    EXPECT_EQ(mSession.Choose("activateFonts", "/a.ai", {"DejaVuSans", "Nowhere"}),
              "PluginCore: Activate Document Fonts: Activated: DejaVuSans. Not to be had: "
              "Nowhere.\n");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(mSession.Choose("activateFonts", "/a.ai", {"DejaVuSans"}),
              "PluginCore: Activate Document Fonts: No font had to be activated.\n");
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(MenuCommandsTest, ActivatesTheFontsOfPlacedFilesToo)
{
    const fs::path logo = mSession.home.GetPath() / "logo.eps";
    WriteEps(logo, {"DejaVuSerif"});
    const std::string usage = MakeUsage({}, {logo});
    ASSERT_EQ(mCore.pHandleCloseDocument("/a.ai", usage.c_str()), 0U);
    (void)CaptureErrors([&] {
        EXPECT_EQ(
            mCore.pHandleMenuSelection(mSession.GetId("/a.ai").c_str(), "", "activateFonts", "[]"),
            0U);
    });
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(MenuCommandsTest, WithoutADocumentTheUserIsTold)
{
    for (const char* key : {"activateFonts", "showMissing"})
        EXPECT_EQ(mSession.Choose(key),
                  "PluginCore: Corvanta Fonts: There is no document with a file. Save the document "
                  "first.\n");
}

TEST_F(MenuCommandsTest, DeactivatesWhatNoDocumentUses)
{
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})), 0U);
    int count = 0;
    ASSERT_EQ(mCore.pActivateChosenFonts("", MakeFontList({"DejaVuSansMono"}).c_str(), &count), 0U);
    EXPECT_EQ(mSession.Choose("deactivateUnused", "/a.ai", {"DejaVuSerif"}),
              "PluginCore: Deactivate Unused Fonts: Deactivated: DejaVuSans, DejaVuSansMono.\n");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_THAT(mSession.Choose("deactivateUnused", "/a.ai", {"DejaVuSerif"}),
                HasSubstr("All fonts that were activated are used"));
}

TEST_F(MenuCommandsTest, ShowsWhatIsMissingAndWhy)
{
    FontTestHome::CopyFont("DejaVuSans-Bold", mSession.home.GetLibrary() / "House");
    FontTestHome::WriteFile(mSettings, "{\"FontActivation\":\"0\"}");
    ASSERT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})), "");
    EXPECT_EQ(mSession.Choose("showMissing", "/a.ai", {"Nowhere", "DejaVuSans"}),
              "PluginCore: Show Missing Fonts: 2 fonts missing\nNowhere: in no font library\n"
              "DejaVuSans: in the font library; activation is off\n");
    const fs::path house = mSession.home.GetLibrary() / "House";
    (void)mSession.Choose("library:" + house.string());
    EXPECT_EQ(mSession.Choose("showMissing", "/a.ai", {"DejaVuSans"}),
              "PluginCore: Show Missing Fonts: 1 font missing\nDejaVuSans: not in the selected "
              "library " +
                  house.string() + "\n");
}

TEST_F(MenuCommandsTest, NothingMissingIsToldToo)
{
    ASSERT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})), 0U);
    EXPECT_EQ(mSession.Choose("showMissing", "/a.ai", {"DejaVuSans"}),
              "PluginCore: Show Missing Fonts: All fonts of the document are active.\n");
}

TEST_F(MenuCommandsTest, AFontThatWasRefusedIsToldSo)
{
    FontTestHome::WriteFile(mSettings, "{\"FontActivation\":\"2\"}");
    (void)CaptureErrors(
        [&] { (void)mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})); });
    EXPECT_THAT(mSession.Choose("showMissing", "/a.ai", {"DejaVuSans"}),
                HasSubstr("DejaVuSans: in the font library; not chosen for this document\n"));
}

TEST_F(MenuCommandsTest, AFolderIsAddedFromTheTerminal)
{
    const fs::path folder = mSession.home.GetPath() / "more";
    FontTestHome::CopyFont("DejaVuSans-Bold", folder);
    const Terminal terminal("  " + folder.string() + " \n/nowhere\n" + folder.string() + "\n");
    const std::string ask = "Folder with fonts to add: PluginCore: Add Font Folder: ";
    EXPECT_EQ(mSession.Choose("addFolder"), ask + folder.string() + ": added, with 1 font\n");
    EXPECT_EQ(mSession.Choose("addFolder"), ask + "/nowhere: No such file or directory\n");
    EXPECT_EQ(mSession.Choose("addFolder"),
              ask + folder.string() + ": is in the font library already\n");
    EXPECT_EQ(mSession.Choose("addFolder"), "Folder with fonts to add: ");
    mSession.Restart();
    EXPECT_EQ(FindNode("library:" + folder.string()).at("title"), "more");
    EXPECT_NE(mCore.Open("/a.ai", MakeFontList({"DejaVuSans-Bold"})), "");
}

TEST_F(MenuCommandsTest, WithoutATerminalTheUserIsToldWhereFontsGo)
{
    EXPECT_EQ(mSession.Choose("addFolder"),
              "PluginCore: Add Font Folder: There is no terminal to ask on. Put the folder into "
              "the font library: " +
                  mSession.home.GetLibrary().string() + "\n");
}

TEST_F(MenuCommandsTest, TheLibraryIsRevealed)
{
    const fs::path house = mSession.home.GetLibrary() / "House";
    fs::create_directories(house);
    EXPECT_EQ(mSession.Choose("revealLibrary"),
              "PluginCore: Reveal Font Library: " + mSession.home.GetLibrary().string() + "\n");
    (void)mSession.Choose("library:" + house.string());
    EXPECT_EQ(mSession.Choose("revealLibrary"),
              "PluginCore: Reveal Font Library: " + house.string() + "\n");
}

TEST_F(MenuCommandsTest, ALibraryIsSelectedAndLifted)
{
    const fs::path house = mSession.home.GetLibrary() / "House";
    FontTestHome::CopyFont("DejaVuSans-Bold", house);
    const std::string id = "library:" + house.string();
    EXPECT_FALSE(IsChecked(id));
    EXPECT_EQ(mSession.Choose(id), "");
    EXPECT_TRUE(IsChecked(id));
    const std::string fonts = MakeFontList({"DejaVuSans", "DejaVuSans-Bold"});
    EXPECT_EQ(mCore.Open("/a.ai", fonts),
              "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans-Bold\"}]}");
    mSession.Restart();
    EXPECT_TRUE(IsChecked(id));
    EXPECT_EQ(mSession.Choose(id), "");
    EXPECT_FALSE(IsChecked(id));
    EXPECT_THAT(mCore.Open("/a.ai", fonts), HasSubstr("\"DejaVuSans\""));
}

TEST_F(MenuCommandsTest, ASelectedLibraryThatIsGoneSelectsAll)
{
    const fs::path house = mSession.home.GetLibrary() / "House";
    fs::create_directories(house);
    (void)mSession.Choose("library:" + house.string());
    EXPECT_EQ(mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})), "");
    fs::remove(house);
    EXPECT_NE(mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})), "");
}

TEST_F(MenuCommandsTest, ThePreferencesShowThePresentOne)
{
    EXPECT_TRUE(IsChecked("activation:1"));
    for (const char* id : {"activation:0", "activation:2", "activation:1"}) {
        EXPECT_EQ(mSession.Choose(id), "");
        for (const char* other : {"activation:0", "activation:1", "activation:2"})
            EXPECT_EQ(IsChecked(other), std::string(other) == id) << id << ' ' << other;
    }
    EXPECT_EQ(plugincore::Settings().Get(mSettings, "FontActivation"), "1");
}

TEST_F(MenuCommandsTest, TheDialogSuppressionIsToggledInTheFile)
{
    EXPECT_TRUE(IsChecked("dialogSuppression"));
    EXPECT_THAT(mSession.Choose("dialogSuppression"), HasSubstr("the dialog is shown."));
    EXPECT_FALSE(IsChecked("dialogSuppression"));
    char buffer[8192] = {};
    size_t size = sizeof buffer;
    EXPECT_EQ(mCore.pGetSettings(buffer, &size), 0U);
    EXPECT_STREQ(buffer, "{\"DialogSuppression\":\"2\"}");
    EXPECT_THAT(mSession.Choose("dialogSuppression"), HasSubstr("the dialog is held back."));
    EXPECT_EQ(plugincore::Settings().Get(mSettings, "DialogSuppression"), "1");
}

TEST_F(MenuCommandsTest, TheDialogSuppressionOfTheFileShowsInTheMenu)
{
    FontTestHome::WriteFile(mSettings, "{\"DialogSuppression\":\"3\"}");
    EXPECT_FALSE(IsChecked("dialogSuppression"));
    FontTestHome::WriteFile(mSettings, "{\"DialogSuppression\":\"twelve\"}");
    EXPECT_TRUE(IsChecked("dialogSuppression"));
}

TEST_F(MenuCommandsTest, ItemsForADocumentNeedOne)
{
    for (const char* id : {"activateFonts", "showMissing"}) {
        EXPECT_FALSE(FindNode(id).at("enabled").get<bool>());
        EXPECT_TRUE(FindNode(id, "/a.ai").at("enabled").get<bool>());
    }
}

TEST_F(MenuCommandsTest, AnUnknownKeyIsTold)
{
    EXPECT_EQ(CaptureErrors([&] {
                  EXPECT_EQ(mCore.pHandleMenuSelection("", "", "library:/gone", ""), 0x07000000U);
              }),
              "PluginCore: HandleMenuSelection: no menu item has the id \"library:/gone\"\n");
}

TEST_F(MenuCommandsTest, TheAboutBoxIsShown)
{
    EXPECT_EQ(mSession.Choose("about"),
              "PluginCore: Corvanta Fonts: Font library: " + mSession.home.GetLibrary().string() +
                  "\n3 fonts in 3 files, 0 bad files skipped\n");
}

}  // namespace
