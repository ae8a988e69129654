#include "EndToEnd.h"

using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(EndToEnd, WithoutPluginCoreNothingIsOpened)
{
    pluginCore.clear();
    EXPECT_EQ(4, Open(Sample("leaflet.eps") + " --json"));
    EXPECT_THAT(errors, HasSubstr("Missing PluginCore"));
    EXPECT_THAT(errors, HasSubstr("./CorvantaFontManagement..."));
    EXPECT_THAT(ActiveFonts(), testing::ElementsAre("DejaVuSansMono"));
}

// PluginCores that the plug-in must refuse, by the name of their folder.
class RefusedCore : public EndToEnd, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedCore, GivesAnAlertAndExitStatus4)
{
    pluginCore = std::filesystem::path(SCRIPTED_PLUGIN_CORE_FOLDER) / GetParam();
    ASSERT_TRUE(std::filesystem::exists(pluginCore / "PluginCore.framework/PluginCore"));
    EXPECT_EQ(4, Open(Sample("leaflet.eps") + " --json"));
    EXPECT_THAT(errors, HasSubstr("Incompatible PluginCore"));
    EXPECT_THAT(errors, HasSubstr("PluginCore.framework (version "));
    EXPECT_THAT(output, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Variants, RefusedCore,
    testing::Values("missing-ActivateChosenFonts", "missing-CreateMenusFromJSONBuffer",
                    "missing-GetAPIVersion", "missing-GetIDForDocument", "missing-GetMenus",
                    "missing-GetSettings", "missing-GetSocketPort", "missing-HandleCloseDocument",
                    "missing-HandleCreateNewDocument", "missing-HandleMenuSelection",
                    "missing-HandleOpenExistingDocument", "missing-HandleSaveDocument",
                    "missing-IdleEvent", "missing-InitializePluginCoreInterface",
                    "missing-InvokeCommandDialog", "missing-InvokeResolveDialog",
                    "missing-InvokeRestrictedFontsDialog", "missing-PluginIsEnabled",
                    "missing-ProcessPanelMessages", "missing-RegisterPlugPlug",
                    "missing-SetPathForDocument", "missing-TerminatePluginCoreInterface",
                    "missing-UpdateDocumentFontUsage", "missing-SetRebuildWorkgroupsMenuCallback",
                    "missing-ShowNotLoggedInMessageBox", "missing-ShouldShowLogin", "only-two",
                    "empty", "version-refused"),
    [](const auto& information) {
        std::string name = information.param;
        for (char& c : name) {
            if (c == '-') c = '_';
        }
        return name;
    });
