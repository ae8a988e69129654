#pragma once

#include <string>
#include <vector>

// Lines of text drawn with the glyphs of a font file.
namespace documents {

struct FontFile {
    std::string path;
    int index = 0;  // FreeType's: face in the low 16 bits, instance above
};

struct TextLine {
    std::string words;  // UTF-8; bytes that aren't are replaced
    double x = 0;       // of the baseline's start, from the left edge, in points
    double y = 0;       // from the upper edge
    double size = 0;
};

struct TextBlock {
    FontFile font;
    std::vector<TextLine> lines;
};

// Where the line of this number goes on a page, so that it begins inside whatever size the page
// has. Lines beyond the lower edge start over at the top.
TextLine PlaceLine(size_t number, const std::string& words, double width, double height);

// Whether the file holds a face that text can be drawn with.
bool CanDrawWith(const FontFile& font);

// One page with the blocks, as a PDF or an EPS. Throws std::runtime_error if a font can't be read.
std::string DrawTextAsPdf(double width, double height, const std::vector<TextBlock>& blocks);
std::string DrawTextAsEps(double width, double height, const std::vector<TextBlock>& blocks);

}  // namespace documents
