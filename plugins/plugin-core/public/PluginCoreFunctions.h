#ifndef PLUGIN_CORE_FUNCTIONS_H
#define PLUGIN_CORE_FUNCTIONS_H

/*
 * The functions of PluginCore, the library that does all font management. The plug-in looks them up
 * by name at run time. A PluginCore exports all 26 with C linkage; the plug-in rejects a library
 * that lacks any of them. This header compiles as C and as C++.
 *
 * The rules in this comment apply to every function unless its own comment says otherwise.
 *
 * Results
 *   Every function returns a status, 0 for success. Unless the comment says what the plug-in does
 *   with a status, the plug-in ignores it. No function lets a C++ exception out.
 *   Statuses for failures:
 *     0x01000000  general error             0x0C000000  buffer too small
 *     0x04000000  invalid JSON              0x0D000000  font database error
 *     0x05000000  null pointer              0x0E000000  unsupported interface version
 *     0x07000000  not found                 0x11000000  not initialized
 *     0x09000000  item already exists       0x15000000  unknown error
 *
 * Pointers
 *   The caller owns every string and buffer and may free it as soon as the function returns:
 *   PluginCore copies what it keeps. Only the SDKPlugPlug and the two callbacks remain valid.
 *   The plug-in passes no null pointer except the buffer of the first GetMenus call. For any other
 *   null pointer a function returns 0x05000000 and does nothing else.
 *
 * Strings
 *   Strings are UTF-8 and end with a zero byte. An empty string is "", not null.
 *
 * Buffers
 *   A buffer is a pair `char* buffer, size_t* ioSize`.
 *   in   *ioSize is the capacity in bytes, including the zero byte. Input in the buffer ends at
 *        the first zero byte or after *ioSize bytes, whichever comes first: text that the plug-in
 *        had to cut has no zero byte within the capacity.
 *   out  A string with its zero byte, at most *ioSize bytes together. A longer result is not cut:
 *        the function writes "" and returns 0x0C000000. *ioSize itself does not change, because
 *        the plug-in passes the same variable to later calls; GetMenus is the exception.
 *   On failure the buffer holds "", and other output parameters are unchanged. The plug-in passes
 *   buffers without input zeroed, so those can simply be left alone.
 *
 * JSON
 *   font list     [{"PostScriptName":"A"},...], or an object with that array as "DocumentFonts".
 *                 Every element has the name. Input may repeat names.
 *   usage report  {"DocumentFonts":[{"PostScriptName":"A"},...],"LinkedDocuments":["/path",...]},
 *                 both members always present; or "" if nothing could be determined.
 *   menu tree     nested nodes {"id","label","title","checked","enabled","child"}; all members are
 *                 required. "checked" and "enabled" are booleans, "child" is an array of nodes, the
 *                 others are strings. The root is a node too; its "child" holds the top level.
 *                 The node labelled "Select Library" is on the top level; its children are the
 *                 libraries.
 *
 * Threads
 *   [main-thread] The plug-in calls on the host's main thread, one call at a time. Two calls can be
 *   nested inside another one: GetMenus, from RebuildWorkgroupsMenuFunction, and GetSocketPort,
 *   from the event bus.
 *
 * Life cycle
 *   [active] The function works only between InitializePluginCoreInterface and
 *   TerminatePluginCoreInterface; otherwise it returns 0x11000000. Functions without this tag work
 *   at any time. IdleEvent and ProcessPanelMessages do nothing and return 0 outside that span.
 */

#include <stdbool.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

struct SDKPlugPlug;  /* the binding of the host's event bus, declared in SDKPlugPlug.h */
struct MenuItemHelp; /* opaque: PluginCore only passes the pointer back */

/* The interface version that the plug-in requires, see GetAPIVersion. */
enum { kPluginCoreAPIVersion = 7 };

/*
 * Callback: adds one item to the host's menus. PluginCore calls it from CreateMenusFromJSONBuffer,
 * once per node below the root, a parent before its children.
 *
 * id          the node's "id", which HandleMenuSelection receives when the user chooses the item
 * label       the node's "label"; also the name of the item's submenu, if it has one
 * title       the text to show; "" adds a separator
 * checked, enabled  the node's members. Traced only: the state that the user sees comes from
 *             GetMenus, before each time the menu opens.
 * hasSubmenu  true creates a submenu, so that items can be added below this one later
 * parentID    the label of the parent; null for an item of the top level
 * context     the MenuItemHelp from CreateMenusFromJSONBuffer
 *
 * The strings only need to be valid during the call. `id`, `label` and `title` may be null, which
 * is treated as "".
 * Returns 0; 0x09000000 if the item is on the top level and a host item has the label as its key;
 * or the host's error code. Nothing was added if the result is not 0. Can throw a C++ exception,
 * which PluginCore has to catch. [main-thread]
 */
typedef unsigned int (*AddIllustratorMenuFunction)(const char* id, const char* label,
                                                   const char* title, bool checked, bool enabled,
                                                   bool hasSubmenu, const char* parentID,
                                                   void* context);

/*
 * Callback: rebuilds the items of the "Select Library" submenu. It calls GetMenus and replaces the
 * items with those in the result. PluginCore calls it from IdleEvent, ProcessPanelMessages or
 * HandleMenuSelection when the libraries have changed. Reports no errors, but can throw a C++
 * exception if a node lacks a member; PluginCore has to catch it. [main-thread]
 */
typedef void (*RebuildWorkgroupsMenuFunction)(void);

/*
 * Activates fonts for a document.
 *
 * documentPath  full path; "" if it is not known, or for a closed document that never had one
 * fontsJson     font list: what InvokeResolveDialog returned. For a closed document: usage report
 *               of at most 32767 bytes, which may be cut and then is not valid JSON.
 * outValue      in: 0; out: number of fonts that became active. The plug-in ignores it.
 *
 * Returns 0x07000000 if no library has a readable file for a font; the other fonts are active
 * nevertheless, and outValue is unchanged. If this status and that of InvokeResolveDialog are 0,
 * the plug-in suppresses the host's missing-fonts dialog for 15 seconds. [main-thread] [active]
 */
typedef unsigned int (*ActivateChosenFontsFunction)(const char* documentPath, const char* fontsJson,
                                                    int* outValue);

/*
 * Parses a menu tree and calls `callback` for each node below the root. Called once, at startup.
 *
 * menusJson  what GetMenus returned; "" if GetMenus failed
 * callback   see AddIllustratorMenuFunction; not called after this function has returned
 * help       passed to `callback` as `context`; valid only during this call
 *
 * A node that the callback rejects is skipped with its children and is no failure.
 * Returns 0x04000000, without calling back, if `menusJson` is not a menu tree. After a failure the
 * plug-in subscribes to no notifiers: it does not see documents being changed, saved or closed.
 * [main-thread]
 */
typedef unsigned int (*CreateMenusFromJSONBufferFunction)(const char* menusJson,
                                                          AddIllustratorMenuFunction callback,
                                                          struct MenuItemHelp* help);

/*
 * Checks whether this PluginCore supports an interface version. Called before
 * InitializePluginCoreInterface, and again later.
 *
 * outVersion       in: 0; out, even on failure: the version that this PluginCore implements. The
 *                  plug-in ignores it.
 * requiredVersion  kPluginCoreAPIVersion
 *
 * Returns 0 if the version is supported, otherwise 0x0E000000. After a failure the plug-in shows an
 * alert and remains inactive. [main-thread]
 */
typedef unsigned int (*GetAPIVersionFunction)(int* outVersion, int requiredVersion);

/*
 * Looks up the id of a document.
 *
 * documentPath  full path of the document or of the template that it was made from, or ""
 * idBuffer      in: all zero; out: the id, or "" for an unknown document. PluginCore alone defines
 *               the form of an id.
 * ioSize        256
 *
 * Returns 0 for an unknown document too. [main-thread] [active]
 */
typedef unsigned int (*GetIDForDocumentFunction)(const char* documentPath, char* idBuffer,
                                                 size_t* ioSize);

/*
 * Returns the menu tree. The plug-in calls it twice: for the size, then for the text.
 *
 * documentPath  path of the current document; "" if no document is open
 * buffer        first call: null; second call: *ioSize bytes, which receive the JSON
 * ioSize        in: 0 with the null buffer, otherwise the capacity; out, if the capacity is too
 *               small: the capacity needed, including the zero byte
 *
 * Returns 0x0C000000 if the capacity is too small, which is the expected result of the first call;
 * after any other result of the first call the plug-in has no menu tree. If the second call fails,
 * the plug-in keeps the tree that it had. [main-thread], also from RebuildWorkgroupsMenuFunction.
 */
typedef unsigned int (*GetMenusFunction)(const char* documentPath, char* buffer, size_t* ioSize);

/*
 * Returns the settings: a JSON object whose members are strings that hold decimal integers, as in
 * {"DialogSuppression":"1"}. A number in place of the string is not recognized.
 *
 * buffer  out: the JSON
 * ioSize  8192
 *
 * The plug-in reads "DialogSuppression": 2 or more switches the suppression of the host's
 * missing-fonts dialog off. After a failure, or without that member, suppression is on.
 * Called at startup and once more after TerminatePluginCoreInterface. [main-thread]
 */
typedef unsigned int (*GetSettingsFunction)(char* buffer, size_t* ioSize);

/*
 * Returns the TCP port, on 127.0.0.1, of the socket that PluginCore opens for the panel. The first
 * call may open the socket. The plug-in sends the port to the panel and does not cache it.
 *
 * outPort  in: 0; out: the port, 1 to 65535
 *
 * After a failure the panel gets no reply and has to ask again.
 * [main-thread], also from a listener of the event bus, on the thread that the bus uses. [active]
 */
typedef unsigned int (*GetSocketPortFunction)(int* outPort);

/*
 * A document has been closed, or the last document that was made from a template.
 *
 * path           full path; the bare name of a document that was never saved; or the path of the
 *                template
 * fontUsageJson  usage report; "" if the file has not been written since it was opened
 *
 * [main-thread] [active]
 */
typedef unsigned int (*HandleCloseDocumentFunction)(const char* path, const char* fontUsageJson);

/*
 * A blank document has been created.
 *
 * idBuffer  in: all zero; out: the id of the new document. The plug-in ignores it.
 * ioSize    256
 *
 * [main-thread] [active]
 */
typedef unsigned int (*HandleCreateNewDocumentFunction)(char* idBuffer, size_t* ioSize);

/*
 * The user has chosen a menu item. PluginCore carries out the command and reports the outcome to
 * the user itself.
 *
 * documentId          from GetIDForDocument; "" without a document or for an unknown one
 * lastKnownMenuState  the menu tree that the plug-in fetched last; "" if none yet
 * menuKey             the "id" of the node; "" for an item that the plug-in does not know
 * fontUsageJson       font list of the current document; "" if `documentId` is "" or there are none
 *
 * Returns 0x07000000 if no node has the id `menuKey`. [main-thread] [active]
 */
typedef unsigned int (*HandleMenuSelectionFunction)(const char* documentId,
                                                    const char* lastKnownMenuState,
                                                    const char* menuKey, const char* fontUsageJson);

/*
 * Determines which fonts of a document have to be resolved. Called twice per document: before the
 * host reads the file, when the plug-in knows only the path, and after it.
 *
 * path      full path of the file that is opened; for a document made from a template, the path of
 *           the template; "" if it is not known
 * ioJson    in: "" before the host reads the file, or for a document without fonts; otherwise the
 *           document's font list, cut at the capacity. out: font list of those to resolve, or "" if
 *           there is nothing to do. The plug-in parses a non-empty result as JSON.
 * ioSize    1048576. The plug-in passes the value left here on to InvokeResolveDialog.
 * outValue  in: 0; out: number of fonts to resolve. The plug-in ignores it.
 *
 * Returns 0x04000000 with "" for input that is not a font list. The plug-in evaluates only
 * `ioJson`: "" suppresses the host's missing-fonts dialog for 15 seconds; a font list leads to
 * InvokeResolveDialog. [main-thread] [active]
 */
typedef unsigned int (*HandleOpenExistingDocumentFunction)(const char* path, char* ioJson,
                                                           size_t* ioSize, int* outValue);

/*
 * A document has been saved, or has been closed after its file was written. One save can cause
 * several calls.
 *
 * path           full path
 * fontUsageJson  usage report
 *
 * [main-thread] [active]
 */
typedef unsigned int (*HandleSaveDocumentFunction)(const char* path, const char* fontUsageJson);

/*
 * Gives PluginCore time for background work. Called on every timer tick, up to 60 times per
 * second, so it has to return quickly. [main-thread]
 */
typedef unsigned int (*IdleEventFunction)(void);

/*
 * Starts PluginCore. A second call without TerminatePluginCoreInterface in between does nothing and
 * returns 0.
 *
 * bundleIdentifier  "com.corvanta.AutoActivationPlugin.AI24"
 * hostVersion       major version of the host: "24"
 *
 * After a failure the plug-in remains inactive. [main-thread]
 */
typedef unsigned int (*InitializePluginCoreInterfaceFunction)(const char* bundleIdentifier,
                                                              const char* hostVersion);

/*
 * Shows the about dialog and returns when the user has closed it.
 *
 * documentPath  path of the current document; "" if no document is open
 * buffer        in: 256 bytes, all zero, with no size parameter; out: reserved. A PluginCore leaves
 *               it unchanged or writes a string of at most 256 bytes including the zero byte. The
 *               plug-in ignores it.
 * outFlag       in: false; out: true if the dialog was shown. The plug-in ignores it.
 *
 * The plug-in returns the status to the host. Can be called even if the plug-in is inactive.
 * [main-thread] [active]
 */
typedef unsigned int (*InvokeCommandDialogFunction)(const char* documentPath, char* buffer,
                                                    bool* outFlag);

/*
 * Lets the user choose which fonts to activate and returns when the choice is made. May decide
 * without a dialog.
 *
 * ioJson  in: font list from HandleOpenExistingDocument without the host's default fonts; the list
 *         may have become empty. out: font list of those chosen, or "" for none.
 * ioSize  the value that HandleOpenExistingDocument left, 1048576
 *
 * With "" the plug-in activates nothing. Otherwise it calls ActivateChosenFonts, whatever the
 * status is. [main-thread] [active]
 */
typedef unsigned int (*InvokeResolveDialogFunction)(char* ioJson, size_t* ioSize);

/*
 * Returns whether the plug-in may handle documents. Called before each document event.
 *
 * request     always true
 * outEnabled  in: false; out: the answer. The plug-in evaluates only this.
 *
 * [main-thread]
 */
typedef unsigned int (*PluginIsEnabledFunction)(bool request, bool* outEnabled);

/*
 * Serves the panel's connections. Called on every timer tick after IdleEvent. Never blocks.
 *
 * value  always 1; no other value is defined
 *
 * [main-thread]
 */
typedef unsigned int (*ProcessPanelMessagesFunction)(int value);

/*
 * Passes the binding of the host's event bus. Called once per timer tick from when the bus is
 * loaded until the plug-in's own listener is registered, always with the same pointer, which
 * remains valid until the process ends. A PluginCore may ignore it. [main-thread]
 */
typedef unsigned int (*RegisterPlugPlugFunction)(struct SDKPlugPlug* plugPlug);

/*
 * Stops PluginCore and releases what it holds for this process. Does nothing if it is not started.
 * The plug-in returns the status to the host as the result of its shutdown. [main-thread]
 */
typedef unsigned int (*TerminatePluginCoreInterfaceFunction)(void);

/*
 * Stores the current usage of a document. Called before HandleMenuSelection.
 *
 * documentId     from GetIDForDocument, not ""
 * fontUsageJson  usage report
 *
 * Returns 0x07000000 if no document has the id. [main-thread] [active]
 */
typedef unsigned int (*UpdateDocumentFontUsageFunction)(const char* documentId,
                                                        const char* fontUsageJson);

/*
 * Passes the callback that rebuilds the "Select Library" submenu. Called once, right after
 * InitializePluginCoreInterface has succeeded. The callback remains valid until the process ends.
 * [main-thread]
 */
typedef unsigned int (*SetRebuildWorkgroupsMenuCallbackFunction)(
    RebuildWorkgroupsMenuFunction callback);

/* Looked up but never called, so only the names are part of the interface. */
typedef void* InvokeRestrictedFontsDialogFunction;
typedef void* SetPathForDocumentFunction;
typedef void* ShowNotLoggedInMessageBoxFunction;
typedef void* ShouldShowLoginFunction;

/* All 26 functions, in the order of look-up. */
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
