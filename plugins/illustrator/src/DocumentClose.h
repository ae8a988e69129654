#pragma once

#include "HostInterface.h"

// The handlers for a document that is closed. See DocumentHandlers.h.

// Stores the usage report of a document that is about to close, if it is the current document: no
// other can be examined. Returns 0.
AIErr HandleDocumentAboutToCloseNotifier(AINotifierMessage* message);

// Reports to PluginCore that the document is closed, that it was saved if its file is newer than at
// the open, and that its template is closed if no other open document comes from it. Removes the
// document from the registry. Returns 0.
AIErr HandleDocumentClosedNotifier(AINotifierMessage* message);
