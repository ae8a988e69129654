#pragma once

#include <string>

#include "ModalWindow.h"

// Holds the host's missing-fonts dialog back for a few seconds after a file's fonts have been dealt
// with: a dialog that is recognised by its class and its title within that period is sent one key
// event, which makes it dismiss itself. Main thread; modal sessions may begin in the middle of a
// message.

// Starts a period of so many seconds from now, in place of the one that runs. While the override
// file exists, none starts.
void SetSuppressionOfMissingFontsDialog(long seconds);

// Whether a period runs now. Its last second doesn't count.
bool GetSuppressionOfMissingFontsDialog();

// Where the override file was found at startup.
void SetPathToSuppressionOverrideFile(const char* path);

// Looks for the override file beside PluginCore and adds a hint for each of its lines. True if the
// file is there; `dialogsListed` then tells whether it had a line. Without PluginCore, or with a
// path that has no folder, `dialogsListed` stays as it was.
bool DialogSuppressionOverrideFileExists(bool& dialogsListed);

// Fills the list of hints from the override file or, without one, with the built-in ones unless the
// setting forbids it, and installs the hook if `enable` is still true after that.
void SetupIllustratorDialogSuppression(bool enable);

// Appends a title hint (UTF-8, copied) with the key code that dismisses the dialog.
void AddDialogSuppressionHint(const char* titleSubstring, int keyCode);

// Appends the built-in hints, one or more for each language of the host.
void CreateListOfSuppressableDialogs();

// Whether the window's title contains a hint, letters compared with their case; the first hint in
// the list's order decides and gives its key code. Otherwise `outKeyCode` stays as it was. An empty
// hint is contained in no title.
bool isSuppressableDialog(ModalWindow* window, unsigned int* outKeyCode);

// Puts a function of ours in the place of the host's modal session. A second call would put the
// host's own back.
void InitSuppressionHooks();

// Does nothing: once installed, the hook stays for the life of the process.
void RemoveSuppressionHooks();

// All that happens with a window in front of its modal session. The platform's own exception (off
// macOS a ModalWindowException) ends no more than the event; any other passes through.
void HandleModalWindow(ModalWindow& window);

// Whether the hint stands in the title, letter by letter. An empty hint stands in none.
bool OSTitleContains(const std::string& title, const std::string& hint);

// Calls the action. The platform's own exception ends it and goes to the system log; any other
// passes through.
void OSCallGuarded(void (*action)(void* context), void* context);

// The Escape key.
extern unsigned short sDismissalKeyCode;
