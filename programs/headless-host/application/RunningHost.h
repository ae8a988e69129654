#pragma once

#include <functional>
#include <string>

#include "application/Application.h"
#include "application/Options.h"

namespace headless {

// A host that runs with its guest, as the commands of the program find it.
struct RunningHost {
    Host& host;
    Application& application;
    const Options& options;
    const std::string& startFolder;  // what the user's paths are relative to
};

// Sets the host up as the options say, starts it, lets `body` work and shuts all down in order.
// Without a running guest `body` isn't called. Returns the exit status: the greatest of what `body`
// gave and what the guest did.
int RunHost(const Options& options, const std::function<int(RunningHost&)>& body);

// Opens one file, prints its report and runs the command of the options. Returns an exit status.
// `last` is what became of it.
int OpenFile(RunningHost& run, const std::string& givenPath, OpenReport& last);

}  // namespace headless
