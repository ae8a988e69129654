#pragma once

#include <string>
#include <vector>

// A line of text in the font of one file, without substitution.
struct SampleLine {
    std::string fontFile;
    std::string text;
    double size;    // in points
    double x, y;    // in points from the upper left corner
    int story = 0;  // number of the story that the line is a paragraph of
};

struct SamplePage {
    double width, height;  // in points
    std::vector<SampleLine> lines;
};

// Draws the page as PDF or EPS and embeds subsets of its fonts. Throws std::runtime_error with the
// reason.
std::string DrawPdf(const SamplePage& page);
std::string DrawEps(const SamplePage& page);

// Returns the PostScript name of the font in a file. Throws std::runtime_error if it has none or
// can't be read.
std::string GetPostScriptName(const std::string& fontFile);
