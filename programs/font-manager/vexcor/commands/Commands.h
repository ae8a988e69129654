#pragma once

#include "plugin-core/services/Services.h"
#include "vexcor/commands/Options.h"

// The commands of the program. Each prints its result, logs its actions and returns an ExitStatus;
// errors are thrown as plugincore::Failure.
namespace vexcor {

int RunInstallCommand();
int RunAddCommand(plugincore::Services& services, const Options& options);
int RunRemoveCommand(plugincore::Services& services, const Options& options);
int RunActivateCommand(plugincore::Services& services, const Options& options);
int RunDeactivateCommand(plugincore::Services& services, const Options& options);
int RunStatusCommand(plugincore::Services& services, const Options& options);
int RunListCommand(plugincore::Services& services, const Options& options);
int RunWhyCommand(plugincore::Services& services, const Options& options);

// Returns the exit status of the command that it runs.
int RunWithCommand(plugincore::Services& services, const Options& options);

// Opens the services itself, because the database may be damaged.
int RunRepairCommand();

// Opens the services itself, under the name of the daemon. Returns when a signal of StopSignals
// comes, or at once if another daemon runs.
int RunWatchCommand(const Options& options);

// Writes what was repaired to the log.
void LogRepairs(const plugincore::Activation::Repairs& repairs);

}  // namespace vexcor
