#pragma once

#include <nlohmann/json.hpp>

#include "HostInterface.h"

using nlohmann::json;

// What happens when a document opens, changes, is saved or closes. Every handler returns
// kBadParameterErr for a null message; the document in question is the message's notifyData.
// Exceptions of the host's wrappers and of the JSON library pass through.

// Records the document and has its fonts checked a second time, now that it can be walked. Else 0.
AIErr HandleDocumentOpenedNotifier(AINotifierMessage* message);

// Tells PluginCore of a blank document. Else 0.
AIErr HandleDocumentNewNotifier(AINotifierMessage* message);

// Gathers all art that fits the specs in a new set, which is the caller's. Throws the host's code
// as an int; a set that was made by then isn't disposed.
AIErr GetTextFrameArtSet(AIArtSpec* specs, short numSpecs, AIArtSet& set);

// Appends one {"PostScriptName": name} for every font of the document's stories, repeats and the
// host's default fonts included. Throws kBadParameterErr as an int for a document without text, and
// every other host code alike; returns the text engine's code. What was appended stays, and so does
// one art set of the host's.
AIErr IterateUsedFonts(json& fonts);
