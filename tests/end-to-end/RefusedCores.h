#pragma once

#include <string>

// The PluginCores that the plug-in must refuse, by the name of their folder.
constexpr const char* kRefusedCores[] = {
    "missing-ActivateChosenFonts",
    "missing-CreateMenusFromJSONBuffer",
    "missing-GetAPIVersion",
    "missing-GetIDForDocument",
    "missing-GetMenus",
    "missing-GetSettings",
    "missing-GetSocketPort",
    "missing-HandleCloseDocument",
    "missing-HandleCreateNewDocument",
    "missing-HandleMenuSelection",
    "missing-HandleOpenExistingDocument",
    "missing-HandleSaveDocument",
    "missing-IdleEvent",
    "missing-InitializePluginCoreInterface",
    "missing-InvokeCommandDialog",
    "missing-InvokeResolveDialog",
    "missing-InvokeRestrictedFontsDialog",
    "missing-PluginIsEnabled",
    "missing-ProcessPanelMessages",
    "missing-RegisterPlugPlug",
    "missing-SetPathForDocument",
    "missing-TerminatePluginCoreInterface",
    "missing-UpdateDocumentFontUsage",
    "missing-SetRebuildWorkgroupsMenuCallback",
    "missing-ShowNotLoggedInMessageBox",
    "missing-ShouldShowLogin",
    "only-two",
    "empty",
    "version-refused",
};

// The part of a test's name that stands for such a folder.
inline std::string GetNameOfCore(std::string folder)
{
    for (char& c : folder) {
        if (c == '-') c = '_';
    }
    return folder;
}
