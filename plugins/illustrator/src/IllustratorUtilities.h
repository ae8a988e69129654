#pragma once

#include <nlohmann/json.hpp>
#include <string>

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
