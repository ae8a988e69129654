#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using nlohmann::json;

// The default fonts of the host: those that it ships for each writing system. They need no
// activation. Main thread. Without the font suite the functions throw kHostBadParameter as an int.

// Returns the PostScript names of the default fonts and their family roots, which are the parts
// before the first hyphen. The first call asks the host; the list is never refreshed.
const std::vector<std::string>& GetIllustratorDefaultFonts();

// Returns whether the name begins with an entry of that list (case-sensitive). A default font thus
// makes its whole family default fonts, and any other name that begins the same way.
bool IsIllustratorDefaultFont(const std::string& name);

// Removes the default fonts from an array of {"PostScriptName": name}, or from such an array under
// "DocumentFonts" of an object. Returns whether it removed any. Throws the JSON library's
// exceptions, also for an array element that isn't such an object.
bool RemoveIllustratorDefaultFonts(json& fonts);

// The same for a JSON text. If nothing is removed, `text` isn't changed.
bool RemoveIllustratorDefaultFonts(std::string& text);
