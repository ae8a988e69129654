#pragma once

#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace vexcor {

// The fonts that a word of the command line stands for.
struct FontSelection {
    std::vector<std::string> names;
    std::string problem;  // why there is none, or not all; "" if nothing is wrong
};

// Returns the fonts that `word` stands for, the first of these that applies:
//
// - the PostScript name of a font that is in the library or active
// - a font file in the library: its fonts
// - a document: the fonts that it needs
// - a folder: the fonts of the library in it and in the folders below it
// - a pattern of PostScript names with *, ? or [...], in upper or lower case
FontSelection SelectFonts(plugincore::Services& services, const std::string& word);

// Whether `name` is `pattern`, which may have *, ? and [...]. Ignores case.
bool MatchesPattern(const std::string& name, const std::string& pattern);

// All names in the library, and those that Vexcor activated and that were removed from it since, in
// ascending order.
std::vector<std::string> ListAllNames(plugincore::Services& services);

// Returns the family of the first face of the font file that has this PostScript name, as programs
// show it; "" if the file can't be read or has none. Only files that aren't in the index are read.
std::string FindFamily(plugincore::Services& services, const std::string& file,
                       const std::string& postScriptName);

}  // namespace vexcor
