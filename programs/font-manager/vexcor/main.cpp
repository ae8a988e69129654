#include <exception>

#include "console/Console.h"
#include "console/Log.h"
#include "plugin-core/storage/StatusCodes.h"
#include "vexcor/CommandLine.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"

namespace {

using plugincore::Failure;
using plugincore::StatusCodes;

int RunInWorkspace(const vexcor::Options& options,
                   int (*body)(plugincore::Workspace&, const vexcor::Options&))
{
    plugincore::Workspace workspace(plugincore::GetLocations());
    vexcor::LogRepairs(workspace.Start());
    try {
        const int status = body(workspace, options);
        workspace.Stop();
        return status;
    } catch (const Failure&) {
        workspace.Stop();
        throw;
    }
}

int RunCommand(const vexcor::Options& options)
{
    switch (options.command) {
        case vexcor::Command::kWatch:
            return vexcor::RunWatchCommand();
        case vexcor::Command::kInstall:
            return vexcor::RunInstallCommand();
        case vexcor::Command::kAdd:
            return RunInWorkspace(options, vexcor::RunAddCommand);
        case vexcor::Command::kList:
            return RunInWorkspace(options, vexcor::RunListCommand);
        case vexcor::Command::kWhy:
            return RunInWorkspace(options, vexcor::RunWhyCommand);
        case vexcor::Command::kRepair:
            return vexcor::RunRepairCommand();
    }
    return vexcor::kWrongUse;
}

}  // namespace

int main(int argc, char** argv)
try {
    console::SetProgramName("Vexcor");
    vexcor::Options options;
    std::string text;
    switch (vexcor::ParseCommandLine(argc, argv, options, text)) {
        case console::ParseOutcome::kRun:
            plugincore::SetReportSink(console::Tell);
            if (!options.log.empty() && !console::OpenLog(options.log, text)) {
                console::Tell(text);
                return vexcor::kFileFailed;
            }
            return RunCommand(options);
        case console::ParseOutcome::kDone:
            return console::Print(text) ? vexcor::kDone : vexcor::kFileFailed;
        case console::ParseOutcome::kWrongUse:
            break;
    }
    console::Tell(text + " (see Vexcor --help)");
    return vexcor::kWrongUse;
} catch (const Failure& failure) {
    console::Tell(failure.what());
    return failure.GetStatus() == StatusCodes::kDatabaseError ? vexcor::kDatabaseFailed
                                                              : vexcor::kFileFailed;
} catch (const std::exception& failure) {
    console::Tell(failure.what());
    return vexcor::kFileFailed;
}
