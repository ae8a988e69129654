#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "CrossPluginUtils.h"
#include "HostInterface.h"

// Which fonts the host's current document uses, walked run by run, and which of them are the host's
// own. Main thread. Statuses are 0, CoreErrorCodes::kUnknownError, or a code of the host or of the
// text engine.

// Appends the fonts of all text frames in order of first appearance, without repeats and without
// the host's default fonts. The status is that of the last run, frame or call reached: earlier ones
// don't count.
int ExamineTextFramesInCurrentDocForFontUsage(FontList& fonts);

// The PostScript name of the font that a run is set in. With a status other than 0 `name` stays as
// it was.
int GetTextRunFaceStyle(ATE::ITextRange run, std::string& name);

// Takes the host's default fonts out of an array of {"PostScriptName": name}, or of such an array
// under "DocumentFonts"; true if there were any. Throws the JSON library's errors.
bool RemoveIllustratorDefaultFonts(json& fonts);

// The same for a JSON text, which keeps its bytes if nothing was taken out.
bool RemoveIllustratorDefaultFonts(std::string& text);

// Appends the path of every placed file, in the host's order and with repeats. One file whose path
// can't be had makes the status CoreErrorCodes::kUnknownError; the others are listed all the same.
int ExamineCurrentDocForPlacedArt(std::vector<std::string>& paths);

// What the current document needs of the font manager, as JSON; the empty string if both the text's
// and the placed art's status aren't 0, whatever was found. Throws the JSON library's type error
// for text that isn't UTF-8.
std::string CurrentDocumentFontUsage();

// All art of the type in the current document, as the host gives it; the array may be null. The
// host's code, kHostBadParameter if it refused the suite.
AIErr GetMatchingArt(int16_t type, AIArtHandle**& matches, int32_t& count);

// Gives an array of GetMatchingArt back to the host and nulls the handle.
void DisposeIllustratorHandle(AIArtHandle**& handle);
