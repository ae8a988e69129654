#include "commands/FontsReport.h"

#include <nlohmann/json.hpp>

#include "application/ReportJson.h"
#include "base/JsonText.h"
#include "base/Plural.h"
#include "console/Console.h"
#include "documents/model/DocumentFacts.h"

namespace headless {

FontsReport MakeFontsReport(const std::string& path, const documents::OpenResult& result)
{
    FontsReport report;
    report.path = path;
    report.isRead = result.ok;
    report.error = result.error;
    const documents::Document& document = result.document;
    report.kind = documents::GetKindName(document.kind);
    documents::CopyFacts(document, report);
    report.fonts = documents::GetAllFonts(document);
    report.linkedDocuments = document.linkedFiles;
    return report;
}

std::string WriteFontsReportAsJson(const FontsReport& report)
{
    nlohmann::ordered_json line = BeginJsonReport(report, report.isRead ? "read" : "failed");
    line["creator"] = report.creator;
    line["template"] = report.isTemplate;
    line["frames"] = report.frames;
    line["stories"] = report.stories;
    line["runs"] = report.runs;
    line["documentFonts"] = nlohmann::ordered_json::array();
    for (const documents::DocumentFont& font : report.fonts) {
        line["documentFonts"].push_back(BeginJsonFont(font));
    }
    line["fonts"] = line["documentFonts"];  // the former name, for existing scripts
    line["linkedDocuments"] = report.linkedDocuments;
    return base::PrintJson(line);
}

FontsReport ReadFontsReport(const std::string& json)
{
    const auto line = nlohmann::json::parse(json);
    FontsReport report;
    report.path = line.at("path");
    report.isRead = line.at("status") == "read";
    report.error = line.at("error");
    report.kind = line.at("kind");
    report.reader = line.at("reader");
    report.note = line.at("note");
    report.creator = line.at("creator");
    report.isTemplate = line.at("template");
    report.frames = line.at("frames");
    report.stories = line.at("stories");
    report.runs = line.at("runs");
    for (const auto& font : line.at("documentFonts")) {
        report.fonts.push_back({font.at("PostScriptName"), font.at("listed")});
    }
    report.linkedDocuments = line.at("linkedDocuments").get<std::vector<std::string>>();
    return report;
}

std::string WriteFontsReportAsTable(const FontsReport& report)
{
    std::string text = console::MakePrintable(report.path) + ": ";
    if (!report.isRead) return text + "failed: " + console::MakePrintable(report.error) + "\n";
    text += report.kind + " (" + report.reader + "), " + base::Count(report.fonts.size(), "font");
    text += report.isTemplate ? ", template\n" : "\n";
    for (const documents::DocumentFont& font : report.fonts) {
        text += "    " + console::MakePrintable(font.postScriptName);
        text += font.isListed ? "  listed\n" : "\n";
    }
    for (const std::string& file : report.linkedDocuments) {
        text += "    placed file: " + console::MakePrintable(file) + "\n";
    }
    if (!report.note.empty()) text += "    note: " + console::MakePrintable(report.note) + "\n";
    return text;
}

}  // namespace headless
