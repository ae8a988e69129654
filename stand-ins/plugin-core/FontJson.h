#pragma once

#include <string>
#include <vector>

namespace plugincore {

// The PostScript names in a text with fonts: an object that has "DocumentFonts", or that array
// alone. Each name once, in the order of the text; entries without a name are left out. Throws
// Failure with kInvalidParam for any other text.
std::vector<std::string> ReadFontNames(const std::string& text);

// {"DocumentFonts":[{"PostScriptName":...},...]}, or the empty text for no names.
std::string WriteFontNames(const std::vector<std::string>& names);

}  // namespace plugincore
