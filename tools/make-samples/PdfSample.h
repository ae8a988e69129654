#pragma once

#include <map>
#include <string>
#include <vector>

// What is put into a drawn PDF.
struct PdfFacts {
    std::string title;
    std::vector<std::string> placedFiles;             // one entry per placed object
    std::map<std::string, std::string> renamedFonts;  // PostScript names: drawn, then written
};

// Gives the PDF with creator, title and XMP packet, the same bytes at every run. Throws
// std::exception.
std::string FinishPdf(const std::string& pdf, const PdfFacts& facts);
