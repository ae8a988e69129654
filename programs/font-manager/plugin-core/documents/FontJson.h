#pragma once

#include <optional>
#include <string>
#include <vector>

namespace plugincore {

// The PostScript names in a text with fonts: an object that has "DocumentFonts", or that array
// alone. Each name once, in the order of the text; entries without a name are left out. Throws
// Failure with kInvalidParam for any other text.
std::vector<std::string> ReadFontNames(const std::string& text);

// What a usage text tells. A member that isn't in the text isn't known.
struct Usage {
    std::optional<std::vector<std::string>> fonts;            // as ReadFontNames gives them
    std::optional<std::vector<std::string>> linkedDocuments;  // paths, in order, repeats included
};

// Reads a usage, or an array of fonts alone. Throws Failure with kInvalidParam for any other text.
Usage ReadUsage(const std::string& text);

// {"DocumentFonts":[{"PostScriptName":...},...]}, or the empty text for no names.
std::string WriteFontNames(const std::vector<std::string>& names);

}  // namespace plugincore
