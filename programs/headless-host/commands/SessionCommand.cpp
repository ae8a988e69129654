#include "commands/SessionCommand.h"

#include <unistd.h>

#include <algorithm>

#include "application/ExitStatus.h"
#include "application/RunningHost.h"
#include "commands/Prompt.h"
#include "console/Console.h"
#include "documents/bytes/FileBytes.h"
#include "session/Session.h"
#include "session/SessionLine.h"
#include "system/Environment.h"
#include "system/Paths.h"
#include "system/TemporaryFolder.h"
#include "validator/ScriptPlayer.h"

namespace headless {

namespace {

constexpr size_t kLargestFile = 16U << 20;

// Where the lines come from.
enum class Place { kFile, kInput, kPrompt };

int GetStatus(LineOutcome outcome)
{
    switch (outcome) {
        case LineOutcome::kNotAsExpected:
            return kNotAsExpected;
        case LineOutcome::kFileFailed:
            return kFileNotOpened;
        case LineOutcome::kImpossible:
        case LineOutcome::kWrong:
            return kWrongUse;
        case LineOutcome::kDone:
        case LineOutcome::kQuit:
        case LineOutcome::kRestart:
            break;
    }
    return kAllOpened;
}

std::string GetHistoryFile()
{
    const std::string folder = GetStateFolder();
    return folder.empty() ? folder : folder + "/headless-host-history";
}

std::unique_ptr<LineSource> MakeSource(Place place, std::string text, Session& session)
{
    Application& application = session.running.application;
    IdleWork idle{Application::kTicksPerSecond, [&application] { application.Tick(); }};
    if (place == Place::kFile) return ReadLinesOfText(std::move(text));
    if (place == Place::kInput) return ReadStandardInput(std::move(idle));
    return ReadPrompt(
        std::move(idle),
        [&session](const std::string& line, const std::string& word) {
            return CompleteLine(session, line, word);
        },
        GetHistoryFile());
}

// A line that throws ends the script; the documents must still be closed in order.
LineResult RunGuarded(Session& session, const std::string& line)
{
    try {
        return RunLine(session, line);
    } catch (const std::exception& exception) {
        return {LineOutcome::kWrong, exception.what()};
    }
}

// Performs all lines. Returns the greatest exit status of a line.
//
// name   of the file, for messages
// text   the lines if they come from a file
int RunLines(RunningHost& running, Place place, const std::string& name, std::string text)
{
    // Of other lines than those of a file it isn't known yet whether they ask for calls.
    Session session(running, place != Place::kFile || AsksForCalls(text));
    const std::unique_ptr<LineSource> source = MakeSource(place, std::move(text), session);
    int status = kAllOpened;
    for (size_t number = 1;; ++number) {
        const std::optional<std::string> line = source->Next();
        if (!line) break;
        const LineResult result = RunGuarded(session, *line);
        if (result.outcome == LineOutcome::kQuit) break;
        if (!result.text.empty()) {
            console::PrintError(place == Place::kPrompt
                                    ? result.text
                                    : name + ":" + std::to_string(number) + ": " + result.text);
        }
        for (const std::string& failure : session.nestedFailures) {
            console::PrintError(name + ":" + std::to_string(number) + ": " + failure);
            status = std::max<int>(status, kNotAsExpected);
        }
        session.nestedFailures.clear();
        const bool isWrong =
            result.outcome == LineOutcome::kWrong || result.outcome == LineOutcome::kImpossible;
        // A typing error at the prompt doesn't end the session.
        if (isWrong && place == Place::kPrompt) continue;
        status = std::max(status, GetStatus(result.outcome));
        if (isWrong) break;
    }
    for (const auto& [operation, failure] : running.host.failures) {
        std::string line = name;
        line += ": fail ";
        line += operation;
        line += ": the plug-in made no such call";
        console::PrintError(line);
        status = std::max(status, GetStatus(LineOutcome::kNotAsExpected));
    }
    return status;
}

// Plays a script of a simulation, as the validator does.
int RunSimulation(const Options& options, const std::string& script)
{
    const TemporaryFolder folder;
    ValidatorCase which;
    which.script = script;
    const std::string plugin = ChoosePlugin(options.plugin);
    const std::string journal =
        options.journal.empty() ? options.journal : MakeAbsolute(options.journal);
    const CaseOutcome outcome = PlayScript(which, plugin, folder.GetPath(), journal);
    int status = kAllOpened;
    if (outcome.hasInvalidLine) status = kWrongUse;
    for (const Finding& finding : outcome.findings) {
        const bool isRule = finding.rule != 0;
        const std::string rule = isRule ? "rule " + std::to_string(finding.rule) + ": " : "";
        console::PrintError(options.session + ": " + rule + finding.message);
        status = std::max<int>(status, isRule ? kPluginBrokeRule : kNotAsExpected);
    }
    return status;
}

}  // namespace

int RunSessionCommand(const Options& options)
{
    const bool isInput = options.session.empty() || options.session == "-";
    if (isInput) {
        const Place place = IsTerminal(STDIN_FILENO) ? Place::kPrompt : Place::kInput;
        return RunHost(options, [place](RunningHost& run) {
            return RunLines(run, place, "standard input", "");
        });
    }
    const documents::FileBytes file = documents::ReadFileBytes(
        options.session, kLargestFile, [](const std::string&) { return std::string(); });
    if (!file.error.empty()) {
        console::PrintError(options.session + ": " + file.error);
        return kWrongUse;
    }
    if (IsSimulation(file.bytes)) return RunSimulation(options, file.bytes);
    return RunHost(options, [&](RunningHost& running) {
        return RunLines(running, Place::kFile, options.session, file.bytes);
    });
}

}  // namespace headless
