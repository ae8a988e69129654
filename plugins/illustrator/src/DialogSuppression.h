#pragma once

#include <string>

#include "ModalWindow.h"
#include "SuppressionPeriod.h"

// Suppresses the host's missing-fonts dialog for a few seconds after the plug-in has dealt with a
// file's fonts: during that period, a dialog that is recognised by its class and by a hint in its
// title is sent one key event, which makes it dismiss itself. Main thread. The host can begin a
// modal session in the middle of a message.
//
// A hint is a substring of the title, in UTF-8. The hints are built in, unless the user has put an
// override file next to PluginCore; it holds one hint per line.

// Looks for the override file next to PluginCore and adds its lines as hints. Returns whether the
// file exists, and sets `dialogsListed` to whether it has a line. Leaves `dialogsListed` unchanged
// if PluginCore isn't loaded or its path has no folder.
bool DialogSuppressionOverrideFileExists(bool& dialogsListed);

// Adds the hints of the override file or, without one, the built-in hints unless the user's setting
// forbids suppression. Installs the hook if `enable` is true, suppression isn't forbidden and the
// override file isn't empty.
void SetupIllustratorDialogSuppression(bool enable);

// Appends a copy of the hint, and the key code of the event that dismisses the dialog.
void AddDialogSuppressionHint(const char* titleSubstring, int keyCode);

// Appends the built-in hints: one or more for each language of the host.
void CreateListOfSuppressableDialogs();

// Returns whether the window's title contains a hint (case-sensitive), and writes the key code of
// the first such hint to `outKeyCode`. If there is none, `outKeyCode` is unchanged.
bool isSuppressableDialog(ModalWindow* window, unsigned int* outKeyCode);

// Replaces the host's function that begins a modal session. Call it once: a second call restores
// the host's function.
void InitSuppressionHooks();

// Does nothing: the hook remains installed until the process ends.
void RemoveSuppressionHooks();

// Called before a window's modal session: during a period, dismisses the window if it is the
// missing-fonts dialog. If the window throws the platform's own exception (off macOS a
// ModalWindowException), only the key event is lost; any other exception passes through.
void HandleModalWindow(ModalWindow& window);

// Returns whether the title contains the hint (case-sensitive). No title contains an empty hint.
bool OSTitleContains(const std::string& title, const std::string& hint);

// Calls `action` with `context`. Catches the platform's own exception and writes it to the system
// log; any other exception passes through.
void OSCallGuarded(void (*action)(void* context), void* context);

// The Escape key.
extern unsigned short sDismissalKeyCode;
