#ifndef PLUGIN_CORE_FUNCTIONS_H
#define PLUGIN_CORE_FUNCTIONS_H

/*
 * The functions of PluginCore, the library that holds all font management. The plug-in finds them
 * by name at run time; a PluginCore exports all 26 with C linkage.
 *
 * Common to all:
 *  - A status is unsigned, 0 for success. Nothing may be thrown out of a function.
 *  - Texts are zero-terminated UTF-8; JSON crosses as text. Every text and buffer belongs to the
 *    caller and is gone soon after the call: PluginCore copies what it needs. Only the SDKPlugPlug
 *    and the two callbacks stay valid.
 *  - `ioSize` holds the buffer's size in bytes on entry and may be changed by PluginCore.
 *  - Calls come on the host's main thread, one at a time.
 */

#include <stdbool.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

struct SDKPlugPlug;
struct MenuItemHelp;

/* The interface version that GetAPIVersion is asked for. */
enum { kPluginCoreAPIVersion = 7 };

/*
 * Called back once per menu item, parents before their children. `parentID` is null for an item of
 * the top level, else the label of the parent. An empty title makes a separator. `context` is the
 * MenuItemHelp that came with CreateMenusFromJSONBuffer. The result isn't 0 if the item couldn't be
 * added.
 */
typedef unsigned int (*AddIllustratorMenuFunction)(const char* id, const char* label,
                                                   const char* title, bool checked, bool enabled,
                                                   bool hasSubmenu, const char* parentID,
                                                   void* context);

/* Asks the plug-in to build the "Select Library" submenu anew. To be called on the main thread. */
typedef void (*RebuildWorkgroupsMenuFunction)(void);

/* Activates the fonts of a document; an empty path is a document that never had a file. */
typedef unsigned int (*ActivateChosenFontsFunction)(const char* documentPath, const char* fontsJson,
                                                    int* outValue);

/* Parses the menu JSON and calls the callback for each item. A failure keeps the plug-in from
   following documents. */
typedef unsigned int (*CreateMenusFromJSONBufferFunction)(const char* menusJson,
                                                          AddIllustratorMenuFunction callback,
                                                          struct MenuItemHelp* help);

/* 0 if this PluginCore serves the required version. */
typedef unsigned int (*GetAPIVersionFunction)(int* outVersion, int requiredVersion);

/* The id under which the document is known; the buffer stays empty for one that isn't. */
typedef unsigned int (*GetIDForDocumentFunction)(const char* documentPath, char* idBuffer,
                                                 size_t* ioSize);

/* The menu tree as JSON. With a null buffer and size 0 the status is 0x0C000000 and *ioSize the
   number of bytes needed; the second call brings a buffer of that size. */
typedef unsigned int (*GetMenusFunction)(const char* documentPath, char* buffer, size_t* ioSize);

/* The settings: an object whose members are strings that hold decimal integers. */
typedef unsigned int (*GetSettingsFunction)(char* buffer, size_t* ioSize);

/* The port of the panel's socket. */
typedef unsigned int (*GetSocketPortFunction)(int* outPort);

/* The document, or the last one of a template, is gone. An empty usage means: nothing new. */
typedef unsigned int (*HandleCloseDocumentFunction)(const char* path, const char* fontUsageJson);

/* A blank document has been made; the buffer takes its id. */
typedef unsigned int (*HandleCreateNewDocumentFunction)(char* idBuffer, size_t* ioSize);

/* A menu command. All four texts may be empty. */
typedef unsigned int (*HandleMenuSelectionFunction)(const char* documentId,
                                                    const char* lastKnownMenuState,
                                                    const char* menuKey, const char* fontUsageJson);

/* A document is about to be read, or has been read. In: the document's fonts as JSON, or the empty
   string if only the path is known. Out: the fonts to be resolved, or the empty string. */
typedef unsigned int (*HandleOpenExistingDocumentFunction)(const char* path, char* ioJson,
                                                           size_t* ioSize, int* outValue);

/* The document has been written to the path. */
typedef unsigned int (*HandleSaveDocumentFunction)(const char* path, const char* fontUsageJson);

/* Called at every tick. */
typedef unsigned int (*IdleEventFunction)(void);

/* Starts PluginCore. Without success the plug-in stays inert. */
typedef unsigned int (*InitializePluginCoreInterfaceFunction)(const char* bundleIdentifier,
                                                              const char* hostVersion);

/* Shows the about dialog. */
typedef unsigned int (*InvokeCommandDialogFunction)(const char* documentPath, char* buffer,
                                                    bool* outFlag);

/* Lets the user choose. In: the fonts to be resolved. Out: those chosen, or the empty string. */
typedef unsigned int (*InvokeResolveDialogFunction)(char* ioJson, size_t* ioSize);

/* Whether documents are to be followed at all. `request` is always true. */
typedef unsigned int (*PluginIsEnabledFunction)(bool request, bool* outEnabled);

/* Called at every tick after IdleEvent, with 1. */
typedef unsigned int (*ProcessPanelMessagesFunction)(int value);

/* Hands over the binding of the host's event bus; it stays valid. */
typedef unsigned int (*RegisterPlugPlugFunction)(struct SDKPlugPlug* plugPlug);

/* Stops PluginCore. Its status is the result of the plug-in's shutdown. */
typedef unsigned int (*TerminatePluginCoreInterfaceFunction)(void);

/* The present usage of a document that has an id. */
typedef unsigned int (*UpdateDocumentFontUsageFunction)(const char* documentId,
                                                        const char* fontUsageJson);

/* Hands over the callback for the "Select Library" submenu; it stays valid. */
typedef unsigned int (*SetRebuildWorkgroupsMenuCallbackFunction)(
    RebuildWorkgroupsMenuFunction callback);

/* Looked up and never called: only their names are fixed. */
typedef void* InvokeRestrictedFontsDialogFunction;
typedef void* SetPathForDocumentFunction;
typedef void* ShowNotLoggedInMessageBoxFunction;
typedef void* ShouldShowLoginFunction;

/* All 26, in the order of the table. */
#define PLUGIN_CORE_FUNCTIONS(X)        \
    X(ActivateChosenFonts)              \
    X(CreateMenusFromJSONBuffer)        \
    X(GetAPIVersion)                    \
    X(GetIDForDocument)                 \
    X(GetMenus)                         \
    X(GetSettings)                      \
    X(GetSocketPort)                    \
    X(HandleCloseDocument)              \
    X(HandleCreateNewDocument)          \
    X(HandleMenuSelection)              \
    X(HandleOpenExistingDocument)       \
    X(HandleSaveDocument)               \
    X(IdleEvent)                        \
    X(InitializePluginCoreInterface)    \
    X(InvokeCommandDialog)              \
    X(InvokeResolveDialog)              \
    X(InvokeRestrictedFontsDialog)      \
    X(PluginIsEnabled)                  \
    X(ProcessPanelMessages)             \
    X(RegisterPlugPlug)                 \
    X(SetPathForDocument)               \
    X(TerminatePluginCoreInterface)     \
    X(UpdateDocumentFontUsage)          \
    X(SetRebuildWorkgroupsMenuCallback) \
    X(ShowNotLoggedInMessageBox)        \
    X(ShouldShowLogin)

#ifdef __cplusplus
}
#endif

#endif
