#pragma once

#include <string>
#include <vector>

#include "documents/OpenDocument.h"

namespace headless {

// The fonts and placed files of one file, as the readers find them without the plug-in.
struct FontsReport {
    std::string path;  // as the user gave it, or a file below the folder that the user gave
    bool isRead = false;
    std::string error;  // one line without the path; empty if it was read
    std::string kind;
    std::string reader;
    std::string note;
    std::string creator;
    bool isTemplate = false;
    size_t frames = 0;
    size_t stories = 0;
    size_t runs = 0;
    std::vector<documents::DocumentFont> fonts;  // as from documents::GetAllFonts
    std::vector<std::string> linkedDocuments;    // repeats included
};

FontsReport MakeFontsReport(const std::string& path, const documents::OpenResult& result);

// One JSON object on one line, without the line end. All reports have the same members, called as
// those of OpenReport; `fonts` repeats `documentFonts` and goes with the next version. A font is an
// object with the members PostScriptName and listed.
std::string WriteFontsReportAsJson(const FontsReport& report);

// Reads what WriteFontsReportAsJson wrote. Throws nlohmann::json::exception for anything else.
FontsReport ReadFontsReport(const std::string& json);

// A few lines for people, with the last line end and without control characters. The word "listed"
// is behind the name of a font that only the document's own list has.
std::string WriteFontsReportAsTable(const FontsReport& report);

}  // namespace headless
