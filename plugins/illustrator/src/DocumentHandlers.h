#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "HostInterface.h"

using nlohmann::json;

// What happens when a document opens, changes, is saved or closes. Every handler returns
// kHostBadParameter for a null message; the document in question is the message's notifyData.
// Exceptions of the host's wrappers and of the JSON library pass through.

// Records the document and has its fonts checked a second time, now that it can be walked. Else 0.
AIErr HandleDocumentOpenedNotifier(AINotifierMessage* message);

// Tells PluginCore of a blank document. Else 0.
AIErr HandleDocumentNewNotifier(AINotifierMessage* message);

// Stores a fresh usage report of the current document, whichever document the message names. Else
// 0.
AIErr HandleDocumentChangedNotifier(AINotifierMessage* message);

// Hands the usage report of the current document to PluginCore, unless it has unsaved changes, has
// no path or is an EPS file of version 8. Else 0 or the host's status for the path.
AIErr HandleDocumentSavedNotifier(AINotifierMessage* message);

// Stores the usage report of a document that is about to go, if it can still be walked. Else 0.
AIErr HandleDocumentAboutToCloseNotifier(AINotifierMessage* message);

// Tells PluginCore what became of the document, and of its template once no other document comes
// from it; forgets the document. Else 0.
AIErr HandleDocumentClosedNotifier(AINotifierMessage* message);

// Deliberately without work. Else 0.
AIErr HandleFontListChangedNotifier(AINotifierMessage* message);

// Replaces the bare name of a document that had no file by what the host says of the current
// document now, and stores it if it is a path. An empty or full path stays as it is.
void ReplaceBareName(_t_AIDocument* document, std::string& path);

// Gathers all art that fits the specs in a new set, which is the caller's. Throws the host's code
// as an int; a set that was made by then isn't disposed.
AIErr GetTextFrameArtSet(AIArtSpec* specs, short numSpecs, AIArtSet& set);

// Appends one {"PostScriptName": name} for every font of the document's stories, repeats and the
// host's default fonts included. Throws kHostBadParameter as an int for a document without text,
// and every other host code alike; returns the text engine's code. What was appended stays, and so
// does one art set of the host's.
AIErr IterateUsedFonts(json& fonts);
