#include "session/Actions.h"

#include <algorithm>
#include <charconv>

#include "application/ExitStatus.h"
#include "console/Console.h"
#include "panel/PanelPlayer.h"
#include "session/MenuTree.h"
#include "system/System.h"

namespace headless {

namespace {

constexpr unsigned long kMostTicks = 1000000;

LineResult FailFile(const std::string& path, const std::string& error)
{
    console::PrintError(path + ": " + error);
    return {LineOutcome::kFileFailed, {}};
}

LineResult RunOpen(Session& session, const Words& words)
{
    const int status = OpenFile(session.run, words[0], session.lastOpened);
    return {status >= kFileNotOpened ? LineOutcome::kFileFailed : LineOutcome::kDone, {}};
}

LineResult RunNew(Session& session, const Words&)
{
    (void)session.run.application.New();  // it is the current one now
    return {};
}

LineResult RunText(Session& session, const Words& words)
{
    if (words[0].empty()) return MakeWrong("expected is the name of a font");
    std::string text;
    for (size_t i = 1; i < words.size(); ++i) text += (i > 1 ? " " : "") + words[i];
    if (text.empty()) text = "Set in " + words[0];
    session.run.application.AddText(words[0], text);
    return {};
}

LineResult RunPlace(Session& session, const Words& words)
{
    const std::string path = session.MakeAbsolute(words[0]);
    if (!IsReadableFile(path)) return FailFile(words[0], "can't be placed: is no file to read");
    session.run.application.Place(path);
    return {};
}

LineResult RunChange(Session& session, const Words&)
{
    session.run.application.Change();
    return {};
}

LineResult RunSave(Session& session, const Words& words)
{
    Application& application = session.run.application;
    const DocumentObject& document = *session.run.host.GetCurrentDocument();
    if (words.empty() && !document.hasFile) {
        return MakeWrong("\"" + document.path + "\" has no file yet; expected is: save PATH");
    }
    const std::string name = words.empty() ? document.path : words[0];
    const std::string error =
        words.empty() ? application.Save() : application.SaveAs(session.MakeAbsolute(name));
    return error.empty() ? LineResult() : FailFile(name, error);
}

LineResult RunCurrent(Session& session, const Words& words)
{
    std::string error;
    DocumentObject* const document = session.FindDocument(words[0], error);
    if (document == nullptr) return MakeWrong(error);
    session.run.host.MakeCurrent(document);
    return {};
}

LineResult RunClose(Session& session, const Words& words)
{
    std::string error = "no document is open; expected is one";
    DocumentObject* const document = words.empty() ? session.run.host.GetCurrentDocument()
                                                   : session.FindDocument(words[0], error);
    if (document == nullptr) return MakeWrong(error);
    session.run.application.Close(document);
    return {};
}

std::string DrawDocuments(const Host& host)
{
    std::string text;
    size_t number = 0;
    for (const auto& document : host.GetDocuments()) {
        text += document.get() == host.GetCurrentDocument() ? "  * " : "    ";
        text += std::to_string(++number) + "  " + document->path;
        text += document->isModified ? "  (modified)\n" : "\n";
    }
    return text.empty() ? "no document is open\n" : text;
}

LineResult RunShow(Session& session, const Words& words)
{
    std::string text;
    if (words[0] == "menu") {
        session.run.application.UpdateMenus();
        text = DrawMenus(session.run.host);
    } else if (words[0] == "documents") {
        text = DrawDocuments(session.run.host);
    } else {
        return MakeWrong("\"" + words[0] + "\" can't be shown; expected is menu or documents");
    }
    if (session.run.options.json) text = nlohmann::json({{words[0], text}}).dump() + "\n";
    (void)console::Print(text);  // it has been told
    return {};
}

LineResult RunMenu(Session& session, const Words& words)
{
    std::string label = words[0];
    for (size_t i = 1; i < words.size(); ++i) label += " " + words[i];
    const MenuEntry entry = FindMenuItem(session.run.host, label);
    if (entry.item == nullptr) return MakeWrong("no menu item is \"" + label + "\"");
    if (!entry.item->isEnabled) {
        return MakeWrong("the menu item \"" + label + "\" is disabled; expected is another one");
    }
    if (entry.item->submenu != nullptr) {
        return MakeWrong("\"" + label + "\" is a submenu; expected is an item in it");
    }
    session.run.application.Choose(entry.handle);
    return {};
}

LineResult RunTick(Session& session, const Words& words)
{
    unsigned long count = 1;
    if (!words.empty() && (!ReadCount(words[0], count) || count > kMostTicks)) {
        return MakeWrong("\"" + words[0] + "\" is no number of ticks; expected is one up to " +
                         std::to_string(kMostTicks));
    }
    for (unsigned long i = 0; i < count && !IsInterrupted(); ++i) session.run.application.Tick();
    return {};
}

LineResult RunPanel(Session& session, const Words& words)
{
    std::vector<nlohmann::json> requests;
    if (words.empty()) requests = {{{"op", "libraries"}}, {{"op", "fonts"}}};
    for (const std::string& word : words) {
        nlohmann::json request = nlohmann::json::parse(word, nullptr, false);
        if (!request.is_object()) {
            return MakeWrong("\"" + word + "\" is no request; expected is a JSON object");
        }
        requests.push_back(std::move(request));
    }
    session.lastPanelAnswers.clear();
    PanelPlayer player(session.run.options.frameworks);
    const PanelAnswer answer = player.Ask(requests, [&session] { session.run.application.Tick(); });
    for (const nlohmann::json& each : answer.answers) {
        session.lastPanelAnswers +=
            each.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    }
    (void)console::Print("panel: port " + std::string(answer.port == 0 ? "not told" : "told") +
                         "\n" + session.lastPanelAnswers);  // a failure has been told
    if (answer.ok) return {};
    return {LineOutcome::kNotAsExpected, "panel: " + answer.error};
}

LineResult RunFontsChanged(Session& session, const Words&)
{
    session.run.application.TellFontsChanged();
    return {};
}

LineResult RunAbout(Session& session, const Words&)
{
    session.run.application.ShowAbout();
    return {};
}

LineResult RunWait(Session& session, const Words& words)
{
    double seconds = 0;
    if (!ReadSeconds(words[0], seconds)) {
        return MakeWrong("\"" + words[0] + "\" is no time; expected are seconds up to 86400");
    }
    session.run.application.Idle(seconds);
    return {};
}

LineResult RunHelp(Session&, const Words&)
{
    (void)console::Print(DescribeActions());  // it has been told
    return {};
}

LineResult RunQuit(Session&, const Words&) { return {LineOutcome::kQuit, {}}; }

std::string JoinUsage(const std::string& start, const std::string& arguments)
{
    return arguments.empty() ? start : start + " " + arguments;
}

}  // namespace

constexpr size_t kAny = 1000;

const std::vector<ActionRow> kActions = {
    {"open", "PATH", 1, 1, Completion::kPath, "Open a document; it becomes the current one", false,
     RunOpen},
    {"new", "", 0, 0, Completion::kNothing, "Begin a new document", false, RunNew},
    {"text", "FONT [WORDS]", 1, kAny, Completion::kFont,
     "Add text in a font to the current document", true, RunText},
    {"place", "PATH", 1, 1, Completion::kPath, "Place a file in the current document", true,
     RunPlace},
    {"change", "", 0, 0, Completion::kNothing, "Tell that the current document has changed", true,
     RunChange},
    {"save", "[PATH]", 0, 1, Completion::kPath,
     "Save the current document, under another name if PATH is given (.ai, .ait, .pdf, .eps)", true,
     RunSave},
    {"current", "N|NAME", 1, 1, Completion::kDocument, "Make another open document the current one",
     false, RunCurrent},
    {"close", "[N|NAME]", 0, 1, Completion::kDocument,
     "Close the current document, or another one without making it current", false, RunClose},
    {"show", "menu|documents", 1, 1, Completion::kForm,
     "Show the menus after bringing them up to date, or the open documents", false, RunShow},
    {"menu", "LABEL", 1, kAny, Completion::kMenuItem,
     "Choose a menu item by its text; \"A/B\" is B in the submenu A", false, RunMenu},
    {"tick", "[N]", 0, 1, Completion::kNothing, "Let N ticks of the host pass, else one", false,
     RunTick},
    {"panel", "[REQUEST]...", 0, kAny, Completion::kNothing,
     "Play the panel: ask for the port, connect, send the requests (JSON objects; "
     "without any: libraries and fonts)",
     false, RunPanel},
    {"fonts-changed", "", 0, 0, Completion::kNothing, "Tell that the list of fonts has changed",
     false, RunFontsChanged},
    {"about", "", 0, 0, Completion::kNothing, "Ask the plug-in for its about box", false, RunAbout},
    {"wait", "SECONDS", 1, 1, Completion::kNothing, "Be idle, with ticks", false, RunWait},
    {"expect", "...", 1, kAny, Completion::kForm, "Check something; see below", false, RunExpect},
    {"help", "", 0, 0, Completion::kNothing, "Show this", false, RunHelp},
    {"quit", "", 0, 0, Completion::kNothing, "End the session; so does the end of the lines", false,
     RunQuit},
};

std::string GetUsage(const ActionRow& row) { return JoinUsage(row.name, row.arguments); }

std::string GetUsage(const ExpectRow& row)
{
    return JoinUsage(std::string("expect ") + row.words, row.arguments);
}

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

LineResult MakeWrong(const std::string& text) { return {LineOutcome::kWrong, text}; }

bool ReadCount(const std::string& text, unsigned long& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool ReadSeconds(const std::string& text, double& seconds)
{
    constexpr double kLongest = 86400;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), seconds);
    return result.ec == std::errc() && result.ptr == text.data() + text.size() && seconds >= 0 &&
           seconds <= kLongest;
}

}  // namespace headless
