#pragma once

#include <optional>
#include <string>
#include <vector>

// The JSON texts in which fonts cross the boundary of PluginCore. The functions that read throw
// Failure with kInvalidParam for a text of another form.
namespace plugincore {

// The PostScript names in an object with the member "DocumentFonts", or in that array alone. Each
// name once, in the order of the text. Entries without a name are skipped.
std::vector<std::string> ReadFontNames(const std::string& text);

// A usage report. A member is null if the text doesn't have it.
struct Usage {
    std::optional<std::vector<std::string>> fonts;            // as from ReadFontNames
    std::optional<std::vector<std::string>> linkedDocuments;  // paths in order, with duplicates
};

// Reads a usage report, or an array of fonts alone.
Usage ReadUsage(const std::string& text);

// The same, but a text without fonts is an error too.
Usage ReadUsageWithFonts(const std::string& text);

// Writes {"DocumentFonts":[{"PostScriptName":...},...]}, or "" for no names.
std::string WriteFontNames(const std::vector<std::string>& names);

}  // namespace plugincore
