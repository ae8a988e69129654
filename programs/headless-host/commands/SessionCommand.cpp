#include "commands/SessionCommand.h"

#include <unistd.h>

#include <algorithm>

#include "application/ExitStatus.h"
#include "application/HostRun.h"
#include "console/Console.h"
#include "documents/bytes/FileBytes.h"
#include "session/LineSource.h"
#include "session/Session.h"
#include "system/System.h"

namespace headless {

namespace {

constexpr size_t kLargestFile = 16u << 20;

// The name of the place that lines are told of.
enum class Place { kFile, kInput, kPrompt };

int GetStatus(LineOutcome outcome)
{
    switch (outcome) {
        case LineOutcome::kNotAsExpected:
            return kNotAsExpected;
        case LineOutcome::kFileFailed:
            return kFileNotOpened;
        case LineOutcome::kWrong:
            return kWrongUse;
        case LineOutcome::kDone:
        case LineOutcome::kQuit:
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
    Application& application = session.run.application;
    IdleWork idle{Application::kTicksPerSecond, [&application] { application.Tick(); }};
    if (place == Place::kFile) return ReadLinesOfText(std::move(text));
    if (place == Place::kInput) return ReadStandardInput(std::move(idle));
    return ReadPrompt(
        std::move(idle),
        [&session](const std::string& line, const std::string& word) {
            return session.Complete(line, word);
        },
        GetHistoryFile());
}

// One line's worth of work, guarded: whatever happens, the documents are closed in order.
LineResult RunGuarded(Session& session, const std::string& line)
{
    try {
        return session.RunLine(line);
    } catch (const std::exception& exception) {
        return {LineOutcome::kWrong, exception.what()};
    }
}

int RunLines(HostRun& run, Place place, const std::string& name, std::string text)
{
    Session session(run);
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
        // A typing error at the prompt is told and forgotten.
        if (result.outcome == LineOutcome::kWrong && place == Place::kPrompt) continue;
        status = std::max(status, GetStatus(result.outcome));
        if (result.outcome == LineOutcome::kWrong) break;
    }
    return status;
}

}  // namespace

int RunSessionCommand(const Options& options)
{
    const bool isInput = options.session.empty() || options.session == "-";
    if (isInput) {
        const Place place = IsTerminal(STDIN_FILENO) ? Place::kPrompt : Place::kInput;
        return RunHost(
            options, [place](HostRun& run) { return RunLines(run, place, "standard input", ""); });
    }
    const documents::FileBytes file = documents::ReadFileBytes(
        options.session, kLargestFile, [](const std::string&) { return std::string(); });
    if (!file.error.empty()) {
        console::PrintError(options.session + ": " + file.error);
        return kWrongUse;
    }
    return RunHost(options, [&](HostRun& run) {
        return RunLines(run, Place::kFile, options.session, file.bytes);
    });
}

}  // namespace headless
