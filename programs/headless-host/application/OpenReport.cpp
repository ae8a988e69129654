#include "application/OpenReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "application/ReportJson.h"
#include "base/JsonText.h"
#include "base/Plural.h"
#include "console/Console.h"

namespace headless {

namespace {

const char* GetStateText(FontState state)
{
    switch (state) {
        case FontState::kDefault:
            return "host default";
        case FontState::kActive:
            return "already active";
        case FontState::kActivated:
            return "activated now";
        case FontState::kMissing:
            return "missing";
    }
    return "";
}

}  // namespace

bool OpenReport::HasMissingFont() const
{
    return std::any_of(fonts.begin(), fonts.end(),
                       [](const FontReport& font) { return font.state == FontState::kMissing; });
}

const char* GetStateName(FontState state)
{
    switch (state) {
        case FontState::kDefault:
            return "default";
        case FontState::kActive:
            return "active";
        case FontState::kActivated:
            return "activated";
        case FontState::kMissing:
            return "missing";
    }
    return "";
}

const char* GetDialogName(DialogOutcome outcome)
{
    switch (outcome) {
        case DialogOutcome::kNone:
            return "none";
        case DialogOutcome::kDismissed:
            return "dismissed";
        case DialogOutcome::kShown:
            return "shown";
    }
    return "";
}

std::string WriteReportAsJson(const OpenReport& report)
{
    nlohmann::ordered_json line = BeginJsonReport(report, report.opened ? "opened" : "failed");
    line["frames"] = report.frames;
    line["runs"] = report.runs;
    line["documentFonts"] = nlohmann::ordered_json::array();
    for (const FontReport& font : report.fonts) {
        nlohmann::ordered_json entry = BeginJsonFont(font);
        entry["state"] = GetStateName(font.state);
        line["documentFonts"].push_back(std::move(entry));
    }
    line["linkedDocuments"] = report.linkedDocuments;
    line["missingFontsDialog"] = GetDialogName(report.dialog);
    line["elapsedMs"] = report.elapsedMs;
    return base::PrintJson(line);
}

std::string WriteReportAsTable(const OpenReport& report)
{
    std::string text = console::MakePrintable(report.path) + ": ";
    if (!report.opened) return text + "failed: " + console::MakePrintable(report.error) + "\n";
    text += report.kind + " (" + report.reader + "), " + base::Count(report.frames, "text frame") +
            ", " + base::Count(report.runs, "run") + "\n";
    size_t width = 0;
    for (const FontReport& font : report.fonts) {
        width = std::max(width, font.postScriptName.size());
    }
    for (const FontReport& font : report.fonts) {
        std::string name = console::MakePrintable(font.postScriptName);
        name.resize(width, ' ');
        text +=
            "    " + name + "  " + GetStateText(font.state) + (font.isListed ? ", listed\n" : "\n");
    }
    if (report.fonts.empty()) text += "    no fonts\n";
    for (const std::string& file : report.linkedDocuments) {
        text += "    placed file: " + console::MakePrintable(file) + "\n";
    }
    if (!report.note.empty()) text += "    note: " + console::MakePrintable(report.note) + "\n";
    text += std::string("    missing-fonts dialog: ") + GetDialogName(report.dialog) + "\n";
    return text;
}

}  // namespace headless
