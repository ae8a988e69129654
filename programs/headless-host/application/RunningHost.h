#pragma once

#include <functional>
#include <string>

#include "application/Application.h"
#include "application/Options.h"

namespace headless {

class SimulatedWorld;

// A started host, as the program's commands use it.
struct RunningHost {
    Host& host;
    Application& application;
    const Options& options;
    const std::string& startFolder;   // the user's paths are relative to it
    SimulatedWorld* world = nullptr;  // of a simulation, else null

    // Starts the plug-in of a simulation if it isn't started yet. Empty outside of a simulation.
    std::function<void()> ensureStarted = {};
};

// The plug-in that the user gave, or the one that is installed with this program.
std::string ChoosePlugin(const std::string& given);

// Sets up a host as `options` say, starts it with its plug-in, calls `body` and shuts it down.
// `body` isn't called if the plug-in cannot be loaded or refuses to run. Reports errors and the
// plug-in's violations on standard error.
//
// Returns an exit status: the greatest of the result of `body` and those for what went wrong
// outside of it.
int RunHost(const Options& options, const std::function<int(RunningHost&)>& body);

// Opens one file, prints its report and runs the command of --exec, if any.
//
// givenPath   as the user gave it
// report      out: the report
// Returns an exit status.
int OpenFile(RunningHost& running, const std::string& givenPath, OpenReport& report);

}  // namespace headless
