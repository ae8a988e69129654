#include <unistd.h>

#include <exception>
#include <string_view>

#include "console/Console.h"
#include "console/Log.h"
#include "fonts/FontconfigMessages.h"
#include "plugin-core/storage/Database.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/commands/CommandLine.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"

namespace {

using plugincore::Failure;
using plugincore::StatusCodes;

// Without memory not even an exception can be thrown, which ends in std::terminate.
[[noreturn]] void EndAtOnce()
{
    const std::string_view line =
        std::current_exception() ? "Vexcor: an unexpected error\n" : "Vexcor: out of memory\n";
    // Nothing can be done if standard error can't be written.
    if (write(STDERR_FILENO, line.data(), line.size()) < 0) _exit(vexcor::kFileFailed);
    _exit(vexcor::kFileFailed);
}

// Before all other constructors, which need memory.
[[gnu::constructor(101)]] void SetTerminateHandler() { (void)std::set_terminate(EndAtOnce); }

int RunWithServices(const vexcor::Options& options,
                    int (*body)(plugincore::Services&, const vexcor::Options&))
{
    plugincore::Services services(plugincore::GetLocations());
    vexcor::LogRepairs(services.Start());
    try {
        const int status = body(services, options);
        services.Stop();
        return status;
    } catch (const Failure&) {
        services.Stop();
        throw;
    }
}

int RunCommand(const vexcor::Options& options)
{
    switch (options.command) {
        case vexcor::Command::kWatch:
            return vexcor::RunWatchCommand(options);
        case vexcor::Command::kInstall:
            return vexcor::RunInstallCommand();
        case vexcor::Command::kAdd:
            return RunWithServices(options, vexcor::RunAddCommand);
        case vexcor::Command::kRemove:
            return RunWithServices(options, vexcor::RunRemoveCommand);
        case vexcor::Command::kActivate:
            return RunWithServices(options, vexcor::RunActivateCommand);
        case vexcor::Command::kDeactivate:
            return RunWithServices(options, vexcor::RunDeactivateCommand);
        case vexcor::Command::kStatus:
            return RunWithServices(options, vexcor::RunStatusCommand);
        case vexcor::Command::kList:
            return RunWithServices(options, vexcor::RunListCommand);
        case vexcor::Command::kWhy:
            return RunWithServices(options, vexcor::RunWhyCommand);
        case vexcor::Command::kWith:
            return RunWithServices(options, vexcor::RunWithCommand);
        case vexcor::Command::kRepair:
            return vexcor::RunRepairCommand();
    }
    return vexcor::kWrongUse;
}

// Runs the command and prints what fontconfig reported meanwhile.
int RunAndReport(const vexcor::Options& options)
{
    const int status = RunCommand(options);
    const std::string problem = fonts::GetFontconfigProblem();
    if (!problem.empty()) console::PrintError("fontconfig: " + problem);
    return status;
}

}  // namespace

int main(int argc, char** argv)
try {
    console::SetProgramName("Vexcor");
    vexcor::Options options;
    std::string text;
    switch (vexcor::ParseCommandLine(argc, argv, options, text)) {
        case console::ParseOutcome::kRun:
            plugincore::SetErrorSink(console::PrintError);
            if (!options.log.empty() && !console::OpenLog(options.log, text)) {
                console::PrintError(text);
                return vexcor::kFileFailed;
            }
            return RunAndReport(options);
        case console::ParseOutcome::kDone:
            return console::Print(text) ? vexcor::kSuccess : vexcor::kFileFailed;
        case console::ParseOutcome::kWrongUse:
            break;
    }
    console::PrintError(text + " (see Vexcor --help)");
    return vexcor::kWrongUse;
} catch (const plugincore::DamagedDatabase& damage) {
    console::PrintError(damage.what() + std::string("; ") + plugincore::kHintForDamage);
    return vexcor::kDatabaseFailed;
} catch (const Failure& failure) {
    console::PrintError(failure.what());
    return failure.GetStatus() == StatusCodes::kDatabaseError ? vexcor::kDatabaseFailed
                                                              : vexcor::kFileFailed;
} catch (const std::exception& failure) {
    console::PrintException(failure);
    return vexcor::kFileFailed;
}
