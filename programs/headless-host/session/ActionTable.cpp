#include "session/ActionTable.h"

#include <algorithm>

#include "console/Console.h"
#include "session/Actions.h"
#include "session/ExpectAction.h"
#include "session/MessageActions.h"
#include "session/SimulationActions.h"

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
     nullptr, RunFail, false, true},
    {"fail-call", "N KIND", 2, 2,
     "Make the Nth call of a suite from now do nothing and return a status, or throw:TYPE", false,
     nullptr, RunFailCall, false, true},
    {"fail-core", "N KIND", 2, 2, "The same for the Nth call of PluginCore", false, nullptr,
     RunFailCore, true, true},
    {"fail-allocation", "N", 1, 1, "Make the Nth allocation of the plug-in from now fail", false,
     nullptr, RunFailAllocation, false, true},
    {"during", "OPERATION LINE", 2, kAny,
     "Perform LINE inside of the next call of a suite's operation or a function of PluginCore",
     false, nullptr, RunDuring, false, true},
    {"send", "CALLER SELECTOR [KEY=VALUE]...", 2, kAny, "Send a message of any kind", false,
     nullptr, RunSend},
    {"remember", "leaks|registrations", 1, 1, "Remember a state for `expect unchanged`", false,
     nullptr, RunRemember},
    {"clock", "+SECONDS|-SECONDS", 1, 1, "Move the clock of the plug-in", false, nullptr, RunClock,
     false, true},
    {"simulate", "", 0, 0,
     "As the first line of a file: play it in a simulation, without the system's fonts, documents "
     "and PluginCore; for the actions below",
     false, nullptr, RunSimulate, true, true},
    {"active", "FONT...", 0, kAny, "The active fonts become these and the default font", false,
     nullptr, RunActive, true, true},
    {"document", "PATH [KEY=VALUE]...", 1, kAny,
     "What the host finds at PATH: fonts=A,B frames=N runs=N placed=P,Q listed=C empty unreadable",
     false, nullptr, RunDocument, true, true},
    {"vanish", "PATH", 1, 1, "Delete the file", false, nullptr, RunVanish, true, true},
    {"language", "TAG", 1, 1, "Language of the host's dialogs", false, nullptr, RunLanguage, true,
     true},
    {"lack-suite", "NAME", 1, 1, "The host has no suite with this name", false, nullptr,
     RunLackSuite, true, true},
    {"suite-version", "NAME N", 2, 2, "The host has this suite only in version N", false, nullptr,
     RunSuiteVersion, true, true},
    {"lack-function", "NAME", 1, 1, "PluginCore lacks a function", false, nullptr, RunLackFunction,
     true, true},
    {"lack-core", "", 0, 0, "There is no PluginCore", false, nullptr, RunLackCore, true, true},
    {"lack-bus", "", 0, 0, "There is no event bus", false, nullptr, RunLackBus, true, true},
    {"core", "FUNCTION [KEY=VALUE]...", 1, kAny,
     "What a function of PluginCore does: status= throw= text= hex= fill= size= number= flag= "
     "rebuild times=",
     false, nullptr, RunCore, true, true},
    {"allow", "refusal|silence", 1, 1,
     "The plug-in may refuse to start; with silence, `send` then sends only what hosts send it",
     false, nullptr, RunAllow, true, true},
    {"count", "[end]", 0, 1, "Count the calls for sweeps from here, or up to here", false, nullptr,
     RunCount, true, true},
    {"start", "", 0, 0, "Start the plug-in, as the first line does that needs it", false, nullptr,
     RunStart, true},
    {"restart", "", 0, 0, "Shut down, unload and start again with a new host", false, nullptr,
     RunRestart, true},
    {"ask-port", "", 0, 0, "Ask for the port as the panel does, over the event bus", false, nullptr,
     RunAskPort},
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
