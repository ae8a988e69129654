#pragma once

#include "PluginCoreFunctions.h"

// The 26 functions of PluginCoreFunctions.h, which has their contract. This implementation adds:
//
//  - A failure also writes one line to standard error, "PluginCore: FUNCTION: what is wrong". A
//    null pointer doesn't.
//  - If the host keeps a journal, it receives a record of each call when the call returns (see
//    CallRecord.h). Not recorded: calls with a null pointer, IdleEvent, ProcessPanelMessages and
//    the four functions at the end.
//  - The values of `request` in PluginIsEnabled and `value` in ProcessPanelMessages don't matter.
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

// Opens the socket at the first call. docs/PANEL.md describes its protocol.
PLUGIN_CORE_EXPORT unsigned int GetSocketPort(int* outPort);
PLUGIN_CORE_EXPORT unsigned int HandleCloseDocument(const char* path, const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int HandleCreateNewDocument(char* idBuffer, size_t* ioSize);
PLUGIN_CORE_EXPORT unsigned int HandleMenuSelection(const char* documentId,
                                                    const char* lastKnownMenuState,
                                                    const char* menuKey, const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int HandleOpenExistingDocument(const char* path, char* ioJson,
                                                           size_t* ioSize, int* outValue);
PLUGIN_CORE_EXPORT unsigned int HandleSaveDocument(const char* path, const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int IdleEvent();
PLUGIN_CORE_EXPORT unsigned int InitializePluginCoreInterface(const char* bundleIdentifier,
                                                              const char* hostVersion);

// Shows the about text in the host's alert. Doesn't use the buffer.
PLUGIN_CORE_EXPORT unsigned int InvokeCommandDialog(const char* documentPath, char* buffer,
                                                    bool* outFlag);
PLUGIN_CORE_EXPORT unsigned int InvokeResolveDialog(char* ioJson, size_t* ioSize);
PLUGIN_CORE_EXPORT unsigned int PluginIsEnabled(bool request, bool* outEnabled);
PLUGIN_CORE_EXPORT unsigned int ProcessPanelMessages(int value);

// Doesn't use the binding: the plug-in itself sends the port to the panel.
PLUGIN_CORE_EXPORT unsigned int RegisterPlugPlug(SDKPlugPlug* plugPlug);
PLUGIN_CORE_EXPORT unsigned int TerminatePluginCoreInterface();
PLUGIN_CORE_EXPORT unsigned int UpdateDocumentFontUsage(const char* documentId,
                                                        const char* fontUsageJson);
PLUGIN_CORE_EXPORT unsigned int SetRebuildWorkgroupsMenuCallback(
    RebuildWorkgroupsMenuFunction callback);

// The plug-in never calls these. They do nothing and return 0.
PLUGIN_CORE_EXPORT unsigned int InvokeRestrictedFontsDialog();
PLUGIN_CORE_EXPORT unsigned int SetPathForDocument();
PLUGIN_CORE_EXPORT unsigned int ShowNotLoggedInMessageBox();
PLUGIN_CORE_EXPORT unsigned int ShouldShowLogin();
}
