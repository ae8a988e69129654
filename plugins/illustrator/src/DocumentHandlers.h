#pragma once

#include "DocumentChange.h"
#include "DocumentClose.h"
#include "HostInterface.h"
#include "UsedFonts.h"

// The handlers of all document notifiers; those for a document that is opened or created are
// declared here. Each returns kHostBadParameter for a null message. The message's notifyData is the
// document. Exceptions of the host wrappers and of the JSON library pass through. Main thread.

// Records the document in the registry and checks its fonts again: when the file was checked before
// it was opened, only its path was known. Returns 0.
AIErr HandleDocumentOpenedNotifier(AINotifierMessage* message);

// Reports a new document to PluginCore. Returns 0.
AIErr HandleDocumentNewNotifier(AINotifierMessage* message);
