#pragma once

#include "PluginCoreFunctions.h"

// The 26 functions as they are exported. What is common to all stands in PluginCoreFunctions.h;
// here is what this PluginCore adds.
//
//  - A null pointer, for any argument, gives kNullPointer and nothing happens. The one exception is
//    the buffer of the first call of GetMenus.
//  - A failure gives its status and one line on standard error.
//  - *ioSize stays the size of the buffer, for the caller's later calls; only the first call of
//    GetMenus changes it. A buffer that is too small becomes the empty text, with kIndexOutOfRange.
//  - Of the functions for documents, all but IdleEvent and ProcessPanelMessages answer
//    kNotInitialized before InitializePluginCoreInterface and after TerminatePluginCoreInterface.
//  - The int of HandleOpenExistingDocument is the number of fonts to resolve, that of
//    ActivateChosenFonts the number of those activated. The bool of InvokeCommandDialog becomes
//    true when the dialog was shown; its buffer, whose size isn't told, stays as it is.
#define PLUGIN_CORE_EXPORT __attribute__((visibility("default")))

extern "C" {

PLUGIN_CORE_EXPORT unsigned int ActivateChosenFonts(const char* documentPath, const char* fontsJson,
                                                    int* outValue);
PLUGIN_CORE_EXPORT unsigned int CreateMenusFromJSONBuffer(const char* menusJson,
                                                          AddIllustratorMenuFunction callback,
                                                          MenuItemHelp* help);
PLUGIN_CORE_EXPORT unsigned int GetAPIVersion(int* outVersion, int requiredVersion);
PLUGIN_CORE_EXPORT unsigned int GetIDForDocument(const char* documentPath, char* idBuffer,
                                                 size_t* ioSize);
PLUGIN_CORE_EXPORT unsigned int GetMenus(const char* documentPath, char* buffer, size_t* ioSize);
PLUGIN_CORE_EXPORT unsigned int GetSettings(char* buffer, size_t* ioSize);

// Opens the panel's socket, once; docs/PANEL.md has its protocol.
PLUGIN_CORE_EXPORT unsigned int GetSocketPort(int* outPort);
PLUGIN_CORE_EXPORT unsigned int HandleCloseDocument(const char* path, const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int HandleCreateNewDocument(char* idBuffer, size_t* ioSize);

// kNotFound for a key that no item of the menu has.
PLUGIN_CORE_EXPORT unsigned int HandleMenuSelection(const char* documentId,
                                                    const char* lastKnownMenuState,
                                                    const char* menuKey, const char* fontUsageJson);

// A text that isn't a list of fonts gives kInvalidParam and leaves the empty text.
PLUGIN_CORE_EXPORT unsigned int HandleOpenExistingDocument(const char* path, char* ioJson,
                                                           size_t* ioSize, int* outValue);
PLUGIN_CORE_EXPORT unsigned int HandleSaveDocument(const char* path, const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int IdleEvent();
PLUGIN_CORE_EXPORT unsigned int InitializePluginCoreInterface(const char* bundleIdentifier,
                                                              const char* hostVersion);
PLUGIN_CORE_EXPORT unsigned int InvokeCommandDialog(const char* documentPath, char* buffer,
                                                    bool* outFlag);
PLUGIN_CORE_EXPORT unsigned int InvokeResolveDialog(char* ioJson, size_t* ioSize);
PLUGIN_CORE_EXPORT unsigned int PluginIsEnabled(bool request, bool* outEnabled);
PLUGIN_CORE_EXPORT unsigned int ProcessPanelMessages(int value);

// Nothing is done with the binding: the plug-in itself tells the panel the port.
PLUGIN_CORE_EXPORT unsigned int RegisterPlugPlug(SDKPlugPlug* plugPlug);
PLUGIN_CORE_EXPORT unsigned int TerminatePluginCoreInterface();
PLUGIN_CORE_EXPORT unsigned int UpdateDocumentFontUsage(const char* documentId,
                                                        const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int SetRebuildWorkgroupsMenuCallback(
    RebuildWorkgroupsMenuFunction callback);

// Never called by the plug-in. They take nothing, do nothing and return 0.
PLUGIN_CORE_EXPORT unsigned int InvokeRestrictedFontsDialog();
PLUGIN_CORE_EXPORT unsigned int SetPathForDocument();
PLUGIN_CORE_EXPORT unsigned int ShowNotLoggedInMessageBox();
PLUGIN_CORE_EXPORT unsigned int ShouldShowLogin();
}
