#pragma once

#include <string>
#include <vector>

namespace headless {

enum class FontState {
    kDefault,    // a default font of the host, which is always active
    kActive,     // active before the document was opened
    kActivated,  // activated since then
    kMissing,
};

enum class DialogOutcome {
    kNone,       // no missing-fonts dialog was due
    kDismissed,  // the plug-in closed the dialog before it was shown
    kShown,
};

struct FontReport {
    std::string postScriptName;
    FontState state = FontState::kMissing;
    bool isListed = false;  // only the document's own list has it: no run does
};

// The result of opening one file.
struct OpenReport {
    std::string path;  // as the user gave it
    bool opened = false;
    std::string error;  // one line without the path; empty if opened
    std::string kind;
    std::string reader;  // the reader that was used; empty if none could read the file
    std::string note;    // what the reader ignored, or why others failed; one line
    size_t frames = 0;
    size_t runs = 0;
    std::vector<FontReport> fonts;
    std::vector<std::string> linkedDocuments;
    DialogOutcome dialog = DialogOutcome::kNone;
    std::string dialogTitle;
    long elapsedMs = 0;

    bool HasMissingFont() const;
};

// "default", "active", "activated", "missing".
const char* GetStateName(FontState state);

// "none", "dismissed", "shown".
const char* GetDialogName(DialogOutcome outcome);

// One JSON object on one line, without the line end. All reports have the same members.
std::string WriteReportAsJson(const OpenReport& report);

// A few lines for people, with the last line end and without control characters.
std::string WriteReportAsTable(const OpenReport& report);

}  // namespace headless
