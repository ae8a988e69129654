#pragma once

#include <string>
#include <vector>

// Draws lines of text with the glyphs of a font file.
namespace documents {

struct FontFile {
    std::string path;
    int index = 0;  // FreeType's: face in the low 16 bits, instance above
};

struct TextLine {
    std::string words;  // UTF-8; invalid bytes are replaced
    double x = 0;       // start of the baseline, from the left edge, in points
    double y = 0;       // baseline, from the upper edge, in points
    double size = 0;    // in points
};

struct TextBlock {
    FontFile font;
    std::vector<TextLine> lines;
};

// Places line `number` on a page so that it begins inside the page, whatever its size in points.
// Lines beyond the lower edge continue at the top.
TextLine PlaceLine(size_t number, const std::string& words, double width, double height);

// Whether the file contains a scalable face.
bool CanDrawWith(const FontFile& font);

// Return one page with the blocks, of this size in points. Throw std::runtime_error if a font can't
// be read.
std::string DrawTextAsPdf(double width, double height, const std::vector<TextBlock>& blocks);
std::string DrawTextAsEps(double width, double height, const std::vector<TextBlock>& blocks);

}  // namespace documents
