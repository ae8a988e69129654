#pragma once

#include <string>
#include <vector>

#include "documents/OpenDocument.h"

namespace headless {

// What one file says of its fonts and placed files, without plug-in and PluginCore.
struct FontsReport {
    std::string path;  // as the user gave it, or below the folder that the user gave
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
    std::vector<std::string> fonts;            // each once, by first appearance
    std::vector<std::string> linkedDocuments;  // repeats included
};

FontsReport MakeFontsReport(const std::string& path, const documents::OpenResult& result);

// One JSON object in one line, without the line end; always with the same members.
std::string WriteFontsReportAsJson(const FontsReport& report);

// The report that such a line stands for; throws if it doesn't.
FontsReport ReadFontsReport(const std::string& json);

// A few lines for people, with the last line end.
std::string WriteFontsReportAsTable(const FontsReport& report);

}  // namespace headless
