#include "session/ActionTable.h"

#include <algorithm>

#include "console/Console.h"
#include "session/Actions.h"
#include "session/ExpectAction.h"

namespace headless {

namespace {

constexpr size_t kAny = 1000;  // arguments; no line has more

// Defined here because it needs the table, which needs the other actions.
LineResult RunHelp(Session&, const Words&)
{
    (void)console::Print(DescribeActions());  // Print reports its own failure
    return {};
}

}  // namespace

const std::vector<ActionRow> kActions = {
    {"open", "PATH", 1, 1, "Open a document and make it the current one", false, CompletePath,
     RunOpen},
    {"new", "", 0, 0, "Create a document and make it the current one", false, nullptr, RunNew},
    {"text", "FONT [WORDS]", 1, kAny, "Add text in a font to the current document", true,
     CompleteFont, RunText},
    {"place", "PATH", 1, 1, "Place a file in the current document", true, CompletePath, RunPlace},
    {"change", "", 0, 0, "Mark the current document as changed", true, nullptr, RunChange},
    {"save", "[PATH]", 0, 1,
     "Save the current document, as PATH if it is given (.ai, .ait, .pdf, .eps)", true,
     CompletePath, RunSave},
    {"current", "N|NAME", 1, 1, "Make another open document the current one", false,
     CompleteDocument, RunCurrent},
    {"close", "[N|NAME]", 0, 1, "Close the current document, or another one", false,
     CompleteDocument, RunClose},
    {"show", "menu|documents", 1, 1, "Update and print the menus, or print the open documents",
     false, CompleteShow, RunShow},
    {"menu", "LABEL", 1, kAny, "Choose a menu item by its text; \"A/B\" is B in the submenu A",
     false, CompleteMenuItem, RunMenu},
    {"tick", "[N]", 0, 1, "Perform N timer ticks of the host (default: 1)", false, nullptr,
     RunTick},
    {"panel", "[REQUEST]...", 0, kAny,
     "Act as the panel: ask for the port, connect, send the requests (JSON objects; default: "
     "libraries and fonts)",
     false, nullptr, RunPanel},
    {"fonts-changed", "", 0, 0, "Notify the plug-in that the list of fonts has changed", false,
     nullptr, RunFontsChanged},
    {"about", "", 0, 0, "Ask the plug-in for its about box", false, nullptr, RunAbout},
    {"wait", "SECONDS", 1, 1, "Wait for SECONDS, sending timer ticks", false, nullptr, RunWait},
    {"exec", "COMMAND", 1, kAny, "Run COMMAND in the shell; its exit status must be 0", false,
     CompletePath, RunExec},
    {"fail", "OPERATION [STATUS]", 1, 2,
     "Make the next call of a suite's operation do nothing and return STATUS (default: 1)", false,
     nullptr, RunFail},
    {"expect", "...", 1, kAny, "Check something; see below", false, CompleteExpect, RunExpect},
    {"help", "", 0, 0, "Print this list", false, nullptr, RunHelp},
    {"quit", "", 0, 0, "End the script, as the end of its lines does", false, nullptr, RunQuit},
};

std::string GetUsage(const ActionRow& row) { return JoinUsage(row.name, row.arguments); }

std::string DescribeActions()
{
    constexpr size_t kColumn = 46;
    std::string text;
    const auto add = [&](std::string usage, const char* help) {
        usage.insert(0, 2, ' ');
        usage.resize(std::max(usage.size() + 1, kColumn), ' ');
        text += usage + help + "\n";
    };
    for (const ActionRow& row : kActions) add(GetUsage(row), row.help);
    for (const ExpectRow& row : kExpectations) add(GetUsage(row), row.help);
    return text;
}

}  // namespace headless
