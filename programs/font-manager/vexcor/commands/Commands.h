#pragma once

#include "plugin-core/workspace/Workspace.h"
#include "vexcor/Options.h"

// Each gives an exit status. What can't be done is thrown as Failure.
namespace vexcor {

int RunInstallCommand();
int RunAddCommand(plugincore::Workspace& workspace, const Options& options);
int RunListCommand(plugincore::Workspace& workspace, const Options& options);
int RunWhyCommand(plugincore::Workspace& workspace, const Options& options);

// Both open a workspace of their own.
int RunRepairCommand();
int RunWatchCommand();

// Tells and logs what a repair found.
void LogRepairs(const plugincore::Activation::Repairs& repairs);

}  // namespace vexcor
