#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "CoreSession.h"
#include "plugin-core/storage/Failure.h"
#include "plugin-core/storage/Settings.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Replaces standard input by a text, as if a user typed it on a terminal.
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
    // Without a desktop, even if the developer has one: no test opens a file manager on it.
    void SetUp() override
    {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
    }

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
    std::string GetTextWithoutTerminal() const
    {
        return "There is no terminal to ask on. Run 'Vexcor add FOLDER', or put the folder into "
               "the font library: " +
               mSession.home.GetLibrary().string() + "\n";
    }
    bool IsChecked(const std::string& id) const { return FindNode(id).at("checked").get<bool>(); }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
    fs::path mSettings = mSession.home.GetPath() / "config/Corvanta/settings.json";
};

TEST_F(MenuCommandsTest, ActivatesTheDocumentsFontsEvenWithActivationOff)
{
    FontTestHome::WriteFile(mSettings, "{\"FontActivation\":\"0\"}");
    ASSERT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans", "Nowhere"})));
    EXPECT_EQ(
        "PluginCore: Activate Document Fonts: Activated: DejaVuSans. Unavailable: "
        "Nowhere.\n",
        mSession.Choose("activateFonts", "/a.ai", {"DejaVuSans", "Nowhere"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ("PluginCore: Activate Document Fonts: No font had to be activated.\n",
              mSession.Choose("activateFonts", "/a.ai", {"DejaVuSans"}));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(MenuCommandsTest, ActivatesTheFontsOfPlacedFilesToo)
{
    const fs::path logo = mSession.home.GetPath() / "logo.eps";
    WriteEps(logo, {"DejaVuSerif"});
    const std::string usage = MakeUsage({}, {logo});
    ASSERT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", usage.c_str()));
    (void)CaptureErrors([&] {
        EXPECT_EQ(0U, mCore.pHandleMenuSelection(mSession.GetId("/a.ai").c_str(), "",
                                                 "activateFonts", "[]"));
    });
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(MenuCommandsTest, CommandsForADocumentExplainThatThereIsNone)
{
    for (const char* key : {"activateFonts", "showMissing"}) {
        EXPECT_EQ(
            "PluginCore: Corvanta Fonts: There is no document with a file. Save the document "
            "first.\n",
            mSession.Choose(key));
    }
}

TEST_F(MenuCommandsTest, DeactivatesFontsThatNoDocumentUses)
{
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans", "DejaVuSerif"})));
    int count = 0;
    ASSERT_EQ(0U, mCore.pActivateChosenFonts("", MakeFontList({"DejaVuSansMono"}).c_str(), &count));
    EXPECT_EQ("PluginCore: Deactivate Unused Fonts: Deactivated: DejaVuSans, DejaVuSansMono.\n",
              mSession.Choose("deactivateUnused", "/a.ai", {"DejaVuSerif"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_THAT(mSession.Choose("deactivateUnused", "/a.ai", {"DejaVuSerif"}),
                HasSubstr("All fonts that were activated are used"));
}

TEST_F(MenuCommandsTest, ShowsMissingFontsWithTheReason)
{
    FontTestHome::CopyFont("DejaVuSans-Bold", mSession.home.GetLibrary() / "House");
    FontTestHome::WriteFile(mSettings, "{\"FontActivation\":\"0\"}");
    ASSERT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})));
    EXPECT_EQ(
        "PluginCore: Show Missing Fonts: 2 fonts missing\nNowhere: in no font library\n"
        "DejaVuSans: in the font library; activation is off\n",
        mSession.Choose("showMissing", "/a.ai", {"Nowhere", "DejaVuSans"}));
    const fs::path house = mSession.home.GetLibrary() / "House";
    (void)mSession.Choose("library:" + house.string());
    EXPECT_EQ(
        "PluginCore: Show Missing Fonts: 1 font missing\nDejaVuSans: not in the selected "
        "library " +
            house.string() + "\n",
        mSession.Choose("showMissing", "/a.ai", {"DejaVuSans"}));
}

TEST_F(MenuCommandsTest, ShowsThatNoFontIsMissing)
{
    ASSERT_EQ(0U, mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})));
    EXPECT_EQ("PluginCore: Show Missing Fonts: All fonts of the document are active.\n",
              mSession.Choose("showMissing", "/a.ai", {"DejaVuSans"}));
}

TEST_F(MenuCommandsTest, ShowsThatTheUserRefusedAFont)
{
    FontTestHome::WriteFile(mSettings, "{\"FontActivation\":\"2\"}");
    (void)CaptureErrors(
        [&] { (void)mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})); });
    EXPECT_THAT(mSession.Choose("showMissing", "/a.ai", {"DejaVuSans"}),
                HasSubstr("DejaVuSans: in the font library; not chosen for this document\n"));
}

TEST_F(MenuCommandsTest, AddsAFolderThatTheUserTypes)
{
    const fs::path folder = mSession.home.GetPath() / "more";
    FontTestHome::CopyFont("DejaVuSans-Bold", folder);
    const Terminal terminal("  " + folder.string() + " \n/nowhere\n" + folder.string() + "\n");
    const std::string ask = "Folder with fonts to add: PluginCore: Add Font Folder: ";
    EXPECT_EQ(ask + folder.string() + ": added, with 1 font\n", mSession.Choose("addFolder"));
    EXPECT_EQ(ask + "/nowhere: No such file or directory\n", mSession.Choose("addFolder"));
    EXPECT_EQ(ask + folder.string() + ": is in the font library already\n",
              mSession.Choose("addFolder"));
    EXPECT_EQ(ask + GetTextWithoutTerminal(), mSession.Choose("addFolder"));
    mSession.Restart();
    EXPECT_EQ("more", FindNode("library:" + folder.string()).at("title"));
    EXPECT_NE("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans-Bold"})));
}

TEST_F(MenuCommandsTest, AnEmptyLineAddsNoFolder)
{
    const Terminal terminal("\n");
    EXPECT_EQ("Folder with fonts to add: ", mSession.Choose("addFolder"));
}

TEST_F(MenuCommandsTest, NamesTheCommandIfThereIsNoTerminalToAddAFolder)
{
    EXPECT_EQ("PluginCore: Add Font Folder: " + GetTextWithoutTerminal(),
              mSession.Choose("addFolder"));
}

TEST_F(MenuCommandsTest, RevealsTheLibrary)
{
    const fs::path house = mSession.home.GetLibrary() / "House";
    fs::create_directories(house);
    EXPECT_EQ("PluginCore: Reveal Font Library: " + mSession.home.GetLibrary().string() + "\n",
              mSession.Choose("revealLibrary"));
    (void)mSession.Choose("library:" + house.string());
    EXPECT_EQ("PluginCore: Reveal Font Library: " + house.string() + "\n",
              mSession.Choose("revealLibrary"));
}

TEST_F(MenuCommandsTest, SelectsAndDeselectsALibrary)
{
    const fs::path house = mSession.home.GetLibrary() / "House";
    FontTestHome::CopyFont("DejaVuSans-Bold", house);
    const std::string id = "library:" + house.string();
    EXPECT_FALSE(IsChecked(id));
    EXPECT_EQ("", mSession.Choose(id));
    EXPECT_TRUE(IsChecked(id));
    const std::string fonts = MakeFontList({"DejaVuSans", "DejaVuSans-Bold"});
    EXPECT_EQ("{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans-Bold\"}]}",
              mCore.Open("/a.ai", fonts));
    mSession.Restart();
    EXPECT_TRUE(IsChecked(id));
    EXPECT_EQ("", mSession.Choose(id));
    EXPECT_FALSE(IsChecked(id));
    EXPECT_THAT(mCore.Open("/a.ai", fonts), HasSubstr("\"DejaVuSans\""));
}

TEST_F(MenuCommandsTest, MissingSelectedLibrarySelectsAll)
{
    const fs::path house = mSession.home.GetLibrary() / "House";
    fs::create_directories(house);
    (void)mSession.Choose("library:" + house.string());
    EXPECT_EQ("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})));
    fs::remove(house);
    EXPECT_NE("", mCore.Open("/a.ai", MakeFontList({"DejaVuSans"})));
}

TEST_F(MenuCommandsTest, ChecksThePresentActivationMode)
{
    EXPECT_TRUE(IsChecked("activation:1"));
    for (const char* id : {"activation:0", "activation:2", "activation:1"}) {
        EXPECT_EQ("", mSession.Choose(id));
        for (const char* other : {"activation:0", "activation:1", "activation:2"}) {
            EXPECT_EQ(std::string(other) == id, IsChecked(other)) << id << ' ' << other;
        }
    }
    EXPECT_EQ("1", plugincore::Settings().Get(mSettings, "FontActivation"));
}

TEST_F(MenuCommandsTest, TogglesTheDialogSuppressionInTheFile)
{
    EXPECT_TRUE(IsChecked("dialogSuppression"));
    EXPECT_THAT(mSession.Choose("dialogSuppression"), HasSubstr("the dialog is shown."));
    EXPECT_FALSE(IsChecked("dialogSuppression"));
    char buffer[8192] = {};
    size_t size = sizeof buffer;
    EXPECT_EQ(0U, mCore.pGetSettings(buffer, &size));
    EXPECT_STREQ("{\"DialogSuppression\":\"2\"}", buffer);
    EXPECT_THAT(mSession.Choose("dialogSuppression"), HasSubstr("the dialog is held back."));
    EXPECT_EQ("1", plugincore::Settings().Get(mSettings, "DialogSuppression"));
}

TEST_F(MenuCommandsTest, ChecksTheDialogSuppressionOfTheFile)
{
    FontTestHome::WriteFile(mSettings, "{\"DialogSuppression\":\"3\"}");
    EXPECT_FALSE(IsChecked("dialogSuppression"));
    FontTestHome::WriteFile(mSettings, "{\"DialogSuppression\":\"twelve\"}");
    EXPECT_TRUE(IsChecked("dialogSuppression"));
}

TEST_F(MenuCommandsTest, EnablesItemsForADocumentOnlyWithOne)
{
    for (const char* id : {"activateFonts", "showMissing"}) {
        EXPECT_FALSE(FindNode(id).at("enabled").get<bool>());
        EXPECT_TRUE(FindNode(id, "/a.ai").at("enabled").get<bool>());
    }
}

TEST_F(MenuCommandsTest, UnknownKeyFails)
{
    EXPECT_EQ("PluginCore: HandleMenuSelection: no menu item has the id \"library:/gone\"\n",
              CaptureErrors([&] {
                  EXPECT_EQ(plugincore::StatusCodes::kNotFound,
                            mCore.pHandleMenuSelection("", "", "library:/gone", ""));
              }));
}

TEST_F(MenuCommandsTest, ShowsTheAboutBox)
{
    EXPECT_EQ("PluginCore: Corvanta Fonts: Font library: " + mSession.home.GetLibrary().string() +
                  "\n3 fonts in 3 files, 0 bad files skipped\n",
              mSession.Choose("about"));
}

}  // namespace
