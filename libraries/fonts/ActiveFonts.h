#pragma once

#include <set>
#include <string>
#include <vector>

// The fonts that fontconfig provides to programs of this user, by PostScript name.
//
// A named instance of a variable font has the name that documents use for it. This name is read
// from the font file, because fontconfig's differs.
//
// All functions work with a new fontconfig configuration: they see fonts that were added or removed
// just now, and don't touch the process-wide configuration. They throw nothing and are thread-safe.
namespace fonts {

// One face that is active.
struct ActiveFont {
    std::string postScriptName;
    std::string file;
    int index = 0;  // as in FreeType: face in the low 16 bits, instance (from 1) above
};

// Lists all active fonts. The list is empty if fontconfig has no configuration.
std::vector<ActiveFont> ListActiveFonts();

// Makes fontconfig read a folder and all folders below it again, regardless of its caches. Errors
// are ignored: callers check the result with ListActiveFonts.
void RescanFolder(const std::string& folder);

// Lists the names of all active fonts.
std::set<std::string> GetActiveFontNames();

// Returns the PostScript name of fontconfig's default font for a language, such as "ja" or "ar", or
// for the system's language if `language` is "". Returns "" if there is no font.
std::string GetDefaultFontName(const std::string& language);

}  // namespace fonts
