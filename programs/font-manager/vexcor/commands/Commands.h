#pragma once

#include "plugin-core/services/Services.h"
#include "vexcor/Options.h"

// Each gives an exit status. What can't be done is thrown as Failure.
namespace vexcor {

int RunInstallCommand();
int RunAddCommand(plugincore::Services& services, const Options& options);
int RunListCommand(plugincore::Services& services, const Options& options);
int RunWhyCommand(plugincore::Services& services, const Options& options);

// Both open services of their own.
int RunRepairCommand();
int RunWatchCommand();

// Tells and logs what a repair found.
void LogRepairs(const plugincore::Activation::Repairs& repairs);

}  // namespace vexcor
