#pragma once

#include <string>

// The environment variables and the terminal of this process. Main thread.
namespace headless {

// Sets an environment variable of this process and of the processes it starts from now on.
//
// name    must not contain '='
void SetEnvironment(const char* name, const std::string& value);

// Makes `folder` the home folder of this process: sets HOME, and the XDG folders for data,
// configuration, cache and state to their default places below it. Creates the folders.
//
// folder   absolute path
// Returns false, with one line in `error`, if a folder cannot be created. Must be called before
// fontconfig is used: it reads these variables once.
bool UseHome(const std::string& folder, std::string& error);

// The XDG state folder of the user, for files that need no backup. Creates the folder. Empty if the
// environment names no home, or if the folder cannot be created.
std::string GetStateFolder();

// The folder for documents::DraftRecord, which may not exist. Empty if the environment names no
// home.
std::string GetDraftRecordFolder();

// The XDG data folder of the user, which may not exist. Empty if the environment names no home.
std::string GetDataFolder();

bool IsTerminal(int descriptor);

}  // namespace headless
