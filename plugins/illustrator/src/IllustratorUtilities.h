#pragma once

#include <string>

#include "CrossPluginUtils.h"
#include "DefaultFonts.h"
#include "HostInterface.h"
#include "PlacedArt.h"

// The usage report of the current document: the fonts of its text, found run by run, and the files
// placed in it. Why there is another walk over the text is explained in UsedFonts.h. Main thread.
//
// A status is 0, CoreErrorCodes::kUnknownError, or a code of the host or of the text engine.

// Appends the fonts of all text frames in the order of their first appearance, without repeats and
// default fonts. Returns the status of the last run, frame or call; earlier failures are lost. For
// a run in a default font that status is CoreErrorCodes::kUnknownError.
int ExamineTextFramesInCurrentDocForFontUsage(FontList& fonts);

// Writes the PostScript name of the run's font to `name`. Returns a status; if it isn't 0, `name`
// is unchanged.
int GetTextRunFaceStyle(ATE::ITextRange run, std::string& name);

// Returns the usage report as JSON, or the empty string if neither the text's nor the placed art's
// status is 0, whatever was found. Throws the JSON library's type error for text that isn't UTF-8.
std::string CurrentDocumentFontUsage();
