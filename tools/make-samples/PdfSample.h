#pragma once

#include <map>
#include <string>
#include <vector>

// What FinishPdf adds to a PDF.
struct PdfFacts {
    std::string title;
    std::vector<std::string> placedFiles;  // one entry per placed object
    std::map<std::string, std::string>
        renamedFonts;        // from the name drawn with to the name written
    std::string nativePart;  // packed; empty for none
};

// Returns the PDF with creator, title and XMP packet added and fonts renamed. Equal arguments give
// equal bytes. Throws std::exception if `pdf` isn't a PDF.
std::string FinishPdf(const std::string& pdf, const PdfFacts& facts);
