#include <cstring>

#include "console/Console.h"
#include "console/Log.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/selection/NeededFonts.h"
#include "vexcor/system/DefaultApplication.h"
#include "vexcor/system/Job.h"

using plugincore::Failure;
using plugincore::Services;

namespace vexcor {
namespace {

constexpr char kPlaceOfFile[] = "{}";

// Repeats each argument with {} for each file; without such an argument, appends the files.
CommandLineWords InsertFiles(const CommandLineWords& words, const std::vector<std::string>& files)
{
    CommandLineWords result = {words.front()};
    bool hasPlace = false;
    for (size_t number = 1; number < words.size(); ++number) {
        const std::string& word = words[number];
        if (word.find(kPlaceOfFile) == std::string::npos) {
            result.push_back(word);
            continue;
        }
        hasPlace = true;
        for (const std::string& file : files) {
            std::string replaced = word;
            for (size_t at = 0; (at = replaced.find(kPlaceOfFile, at)) != std::string::npos;
                 at += file.size()) {
                replaced.replace(at, sizeof kPlaceOfFile - 1, file);
            }
            result.push_back(std::move(replaced));
        }
    }
    if (!hasPlace) result.insert(result.end(), files.begin(), files.end());
    return result;
}

std::vector<ApplicationCommands> ListCommands(const Options& options,
                                              const std::vector<NeededFonts>& documents)
{
    if (!options.words.empty()) {
        return {{options.words.front(), {}, {InsertFiles(options.words, options.operands)}}};
    }
    std::vector<std::string> paths;
    paths.reserve(documents.size());
    for (const NeededFonts& document : documents) paths.push_back(document.path);
    return FindDefaultApplications(paths);
}

void ActivateAll(Services& services, const std::vector<NeededFonts>& documents)
{
    for (const NeededFonts& document : documents) {
        const NeededFontsResult result =
            ActivateNeededFonts(services, services.activation, document);
        if (!result.activated.empty()) {
            console::LogAction(document.path + ": activated " +
                               plugincore::JoinNames(result.activated));
        }
        if (!result.missing.empty()) {
            console::PrintError(document.path + ": neither active nor in the font library: " +
                                plugincore::JoinNames(result.missing));
        }
    }
}

// Runs the commands of all applications and returns the exit status of the job, or that of a shell
// for a command that can't be started. A job that has begun is waited for even then.
int RunAll(const PassedSignals& signals, const std::vector<ApplicationCommands>& applications)
{
    Job job(signals);
    int notStarted = 0;
    for (const ApplicationCommands& application : applications) {
        for (const CommandLineWords& words : application.commands) {
            const int error = job.Start(words, application.folder);
            if (error == 0) continue;
            console::PrintError(words.front() + ": cannot be run: " + std::strerror(error));
            notStarted = error == ENOENT ? Job::kNotFound : Job::kNotExecutable;
        }
    }
    const int status = job.Wait();
    return status != 0 ? status : notStarted;
}

// A signal that came while nothing could be passed on yet; 0 for none.
int TakeSignal(const PassedSignals& signals)
{
    int signal = signals.Wait(0);
    while (signal == SIGCHLD) signal = signals.Wait(0);
    return signal;
}

}  // namespace

int RunWithCommand(Services& services, const Options& options)
{
    std::vector<NeededFonts> documents;
    documents.reserve(options.operands.size());
    for (const std::string& file : options.operands) {
        documents.push_back(ReadNeededFonts(services, file));
    }
    // Until here a signal ends this process: no font is active yet.
    const PassedSignals signals;
    const std::vector<ApplicationCommands> applications = ListCommands(options, documents);
    services.programs.Enter("Vexcor with " + applications.front().name);
    ActivateAll(services, documents);
    if (const int signal = TakeSignal(signals); signal != 0) return Job::kEndedBySignal + signal;
    const int status = RunAll(signals, applications);
    try {
        services.activation.ReleaseAll();
    } catch (const Failure& failure) {
        // The status is that of the command. Whatever uses the database next repairs the rest.
        console::PrintError(failure.what());
        return status != 0 ? status : kDatabaseFailed;
    }
    return status;
}

}  // namespace vexcor
