#pragma once

#include <nlohmann/json.hpp>

#include "HostInterface.h"

using nlohmann::json;

// The fonts of the current document as the text engine lists them for all stories at once.
//
// There are two walks over a document's text because they answer different questions. This one
// feeds PluginCore when a document is opened or a command is chosen: it is complete, with repeats
// and default fonts, and reports a document without text by an exception. The walk over the runs of
// each text frame (IllustratorUtilities.h) feeds the usage report: it leaves out repeats and
// default fonts, skips frames that fail, and its status decides whether there is a report.
//
// Main thread.

// Creates the set of all art that matches the specs. The caller owns `set`. Throws the host's code
// as an int; a set that the host created before the failure isn't disposed of.
AIErr GetTextFrameArtSet(AIArtSpec* specs, short numSpecs, AIArtSet& set);

// Appends {"PostScriptName": name} to `fonts` for every font of the document's stories, repeats and
// default fonts included. Throws kHostBadParameter as an int for a document without text, and
// throws any other host code as an int too. Returns 0 or the text engine's code. On failure, fonts
// already appended remain in `fonts`.
//
// Never disposes of the host's art set: each call leaves one behind.
AIErr IterateUsedFonts(json& fonts);

// Calls IterateUsedFonts and traces a document without fonts. Returns what was appended up to a
// failure; JSON null if that is nothing. Throws nothing.
json CollectUsedFonts();
