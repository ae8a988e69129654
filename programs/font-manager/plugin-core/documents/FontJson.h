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

// The plug-in cuts a text that is longer than its buffer without a word. The smallest of its
// buffers has this size; a shorter text that isn't JSON was not cut.
constexpr size_t kSmallestCut = 32767;

// As ReadUsage or ReadUsageWithFonts, but of a text that was cut, the fonts before the cut are used
// and one line is logged. Not for reports that are stored: a cut one must not replace a whole one.
Usage ReadUsageWithFontsBeforeCut(const std::string& text);
std::vector<std::string> ReadFontNamesBeforeCut(const std::string& text);

// As WriteFontNames, with as many of the names, beginning with the first one, as fit into a buffer
// of `size` bytes with the zero byte. Removes the others from `names` and logs one line. If
// not even the first one fits, the text has all.
std::string WriteFontNamesWithin(std::vector<std::string>& names, size_t size);

// Writes {"DocumentFonts":[{"PostScriptName":...},...]}, or "" for no names.
std::string WriteFontNames(const std::vector<std::string>& names);

}  // namespace plugincore
