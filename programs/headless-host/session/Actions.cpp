#include "session/Actions.h"

#include "application/ExitStatus.h"
#include "base/Files.h"
#include "base/JsonText.h"
#include "console/Console.h"
#include "panel/PanelPlayer.h"
#include "session/MenuTree.h"
#include "session/SessionWords.h"
#include "simulation/SimulatedWorld.h"
#include "system/Interrupts.h"
#include "system/Process.h"

namespace headless {

namespace {

constexpr unsigned long kMostTicks = 1000000;

LineResult FailFile(const std::string& path, const std::string& error)
{
    console::PrintError(path + ": " + error);
    return {LineOutcome::kFileFailed, {}};
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

}  // namespace

LineResult RunOpen(Session& session, const Words& words)
{
    const int status = OpenFile(session.running, words[0], session.lastOpened);
    return {status >= kFileNotOpened ? LineOutcome::kFileFailed : LineOutcome::kDone, {}};
}

LineResult RunNew(Session& session, const Words&)
{
    (void)session.running.application.Documents().New();  // the current one from now on
    return {};
}

LineResult RunText(Session& session, const Words& words)
{
    if (words[0].empty()) return MakeWrong("text: the name of the font is empty");
    std::string text;
    for (size_t i = 1; i < words.size(); ++i) text += (i > 1 ? " " : "") + words[i];
    if (text.empty()) text = "Set in " + words[0];
    session.running.application.Documents().AddText(words[0], text);
    return {};
}

LineResult RunPlace(Session& session, const Words& words)
{
    const std::string path = session.MakeAbsolute(words[0]);
    if (!base::IsReadableFile(path)) {
        return FailFile(words[0], "cannot be placed: not a readable file");
    }
    session.running.application.Documents().Place(path);
    return {};
}

LineResult RunChange(Session& session, const Words&)
{
    session.running.application.Documents().Change();
    return {};
}

LineResult RunSave(Session& session, const Words& words)
{
    DocumentCommands& documents = session.running.application.Documents();
    const DocumentObject& document = *session.running.host.GetCurrentDocument();
    if (words.empty() && !document.hasFile) {
        return MakeImpossible("save: \"" + document.path + "\" has no file yet; use: save PATH");
    }
    const std::string name = words.empty() ? document.path : words[0];
    const SimulatedWorld* const world = session.running.world;
    const std::string problem = world == nullptr ? std::string() : world->CheckPath(name);
    if (!problem.empty()) return MakeWrong("save: " + problem);
    const std::string error =
        words.empty() ? documents.Save() : documents.SaveAs(session.MakeAbsolute(name));
    return error.empty() ? LineResult() : FailFile(name, error);
}

LineResult RunCurrent(Session& session, const Words& words)
{
    std::string error;
    DocumentObject* const document = session.FindDocument(words[0], error);
    if (document == nullptr) return MakeImpossible(error);
    session.running.host.MakeCurrent(document);
    return {};
}

LineResult RunClose(Session& session, const Words& words)
{
    std::string error = "close: no document is open";
    DocumentObject* const document = words.empty() ? session.running.host.GetCurrentDocument()
                                                   : session.FindDocument(words[0], error);
    if (document == nullptr) return MakeImpossible(error);
    session.running.application.Documents().Close(document);
    return {};
}

LineResult RunShow(Session& session, const Words& words)
{
    std::string text;
    if (words[0] == "menu") {
        session.running.application.UpdateMenus();
        text = DrawMenus(session.running.host);
    } else if (words[0] == "documents") {
        text = DrawDocuments(session.running.host);
    } else {
        return MakeWrong("cannot show \"" + words[0] + "\"; use one of menu, documents");
    }
    if (session.running.options.json) text = nlohmann::json({{words[0], text}}).dump() + "\n";
    (void)console::Print(text);  // Print reports its own failure
    return {};
}

LineResult RunMenu(Session& session, const Words& words)
{
    std::string label = words[0];
    for (size_t i = 1; i < words.size(); ++i) label += " " + words[i];
    const MenuEntry entry = FindMenuItem(session.running.host, label);
    if (entry.item == nullptr) return MakeImpossible("no menu item is called \"" + label + "\"");
    if (!entry.item->isEnabled) {
        return MakeImpossible("the menu item \"" + label + "\" is disabled");
    }
    if (entry.item->submenu != nullptr) {
        return MakeImpossible("the menu item \"" + label + "\" is a submenu; choose an item in it");
    }
    session.running.application.Choose(entry.handle);
    return {};
}

LineResult RunTick(Session& session, const Words& words)
{
    unsigned long count = 1;
    if (!words.empty() && (!ReadCount(words[0], count) || count > kMostTicks)) {
        return MakeWrong("\"" + words[0] + "\" is not a valid tick count (0 to " +
                         std::to_string(kMostTicks) + ")");
    }
    for (unsigned long i = 0; i < count && !IsInterrupted(); ++i) {
        session.running.application.Tick();
    }
    return {};
}

LineResult RunPanel(Session& session, const Words& words)
{
    std::vector<nlohmann::json> requests;
    if (words.empty()) requests = {{{"op", "libraries"}}, {{"op", "fonts"}}};
    for (const std::string& word : words) {
        nlohmann::json request = nlohmann::json::parse(word, nullptr, false);
        if (!request.is_object()) {
            return MakeWrong("\"" + word + "\" is not a JSON object");
        }
        requests.push_back(std::move(request));
    }
    session.lastPanelAnswers.clear();
    session.running.host.journal.Write("world", "panel asks", nlohmann::json::object(), nullptr);
    PanelPlayer player(session.running.options.frameworks);
    const PanelAnswer answer =
        player.Ask(requests, [&session] { session.running.application.Tick(); });
    for (const nlohmann::json& each : answer.answers) {
        session.lastPanelAnswers += base::PrintJson(each) + "\n";
    }
    (void)console::Print("panel: port " +
                         std::string(answer.port == 0 ? "not received" : "received") + "\n" +
                         session.lastPanelAnswers);  // Print reports its own failure
    if (answer.ok) return {};
    return {LineOutcome::kNotAsExpected, "panel: " + answer.error};
}

LineResult RunFontsChanged(Session& session, const Words&)
{
    session.running.application.NotifyFontsChanged();
    return {};
}

LineResult RunAbout(Session& session, const Words&)
{
    session.running.application.ShowAbout();
    return {};
}

LineResult RunWait(Session& session, const Words& words)
{
    double seconds = 0;
    if (!ReadSeconds(words[0], seconds)) {
        return MakeWrong("\"" + words[0] + "\" is not a number of seconds (0 to 86400)");
    }
    session.running.application.Idle(seconds);
    return {};
}

LineResult RunExec(Session& session, const Words& words)
{
    std::string command = words[0];
    for (size_t i = 1; i < words.size(); ++i) command += " " + words[i];
    const RunningHost& running = session.running;
    const int status = RunCommand(command, running.startFolder, running.options.json);
    if (status == 0) return {};
    return {LineOutcome::kNotAsExpected,
            status < 0 ? "exec: the command could not be run or was ended by a signal"
                       : "exec: the command's exit status is " + std::to_string(status)};
}

LineResult RunFail(Session& session, const Words& words)
{
    int status = 1;
    if (words.size() > 1 && (!ReadStatus(words[1], status) || status == 0)) {
        return MakeWrong("\"" + words[1] + "\" is not a status of a failure (an integer except 0)");
    }
    session.running.host.failures[words[0]] = status;
    return {};
}

LineResult RunQuit(Session&, const Words&) { return {LineOutcome::kQuit, {}}; }

}  // namespace headless
