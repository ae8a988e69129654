#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

// The fonts that fontconfig gives to programs of this user, by PostScript name, byte for byte.
//
// A named instance of a variable font is listed under the name that documents write, which is read
// from the font file itself, not under fontconfig's.
namespace fonts {

// One face that is active.
struct ActiveFont {
    std::string postScriptName;
    std::string file;
    int index = 0;  // FreeType's: face in the low 16 bits, instance above
};

// Reinitializes fontconfig, so that what has come or gone since is seen, and lists all. The process
// wide configuration of fontconfig isn't touched: the list comes from a configuration of its own.
// Never throws; without fontconfig the list is empty.
std::vector<ActiveFont> ListActiveFonts();

// Has fontconfig read a folder, and all below it, anew, whatever it remembers of them. Never
// throws.
void RescanFolder(const std::string& folder);

// The names alone.
std::set<std::string> GetActiveFontNames();

// The PostScript name of the font that fontconfig gives for a language (as "ja" or "ar"), or for
// the system's default if `language` is empty. Empty if there is no font at all.
std::string GetDefaultFontName(const std::string& language);

}  // namespace fonts
