#pragma once

#include "HostInterface.h"

// The handlers for a document that changes or is saved. See DocumentHandlers.h.

// Stores a new usage report of the current document, which needn't be the document of the message.
// Returns 0.
AIErr HandleDocumentChangedNotifier(AINotifierMessage* message);

// Passes the usage report of the current document to PluginCore, unless the document has unsaved
// changes, has no path or is an EPS file of version 8. Returns the host's status for the path, or
// 0.
AIErr HandleDocumentSavedNotifier(AINotifierMessage* message);

// Does nothing: the plug-in subscribes to this notifier without using it. Returns 0.
AIErr HandleFontListChangedNotifier(AINotifierMessage* message);
