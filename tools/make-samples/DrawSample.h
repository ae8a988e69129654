#pragma once

#include <string>
#include <vector>

// A line of text in exactly the font of one file.
struct SampleLine {
    std::string fontFile;
    std::string text;
    double size;  // in points
    double x, y;  // in points from the upper left corner
};

struct SamplePage {
    double width, height;  // in points
    std::vector<SampleLine> lines;
};

// Draws the page as a PDF or as an EPS whose fonts are subsets of the given files. Throws
// std::runtime_error with the reason.
std::string DrawPdf(const SamplePage& page);
std::string DrawEps(const SamplePage& page);

// The PostScript name that a font file tells.
std::string GetPostScriptName(const std::string& fontFile);
