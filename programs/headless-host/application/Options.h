#pragma once

#include <string>
#include <vector>

namespace headless {

enum class Command { kOpen, kScript, kFonts, kReplay };

// What the command line asks for. Members that name no command belong to open and script.
struct Options {
    Command action = Command::kOpen;
    std::vector<std::string> files;  // of open and fonts
    std::string session;             // of script: a file; "-" or empty for standard input
                                     // of replay: the journal
    std::string update;              // of replay: the new journal
    bool json = false;               // of all commands
    bool interactive = false;
    std::string home;
    std::vector<std::string> libraries;
    std::string plugin;
    std::string frameworks;
    std::string language = "en";  // a tag of kHostLanguages
    std::string journal;
    std::string log;
    std::string command;     // run by the shell while each document is open
    double keepOpen = 0;     // in seconds
    bool names = false;      // of fonts
    bool recursive = false;  // of fonts
    double timeout = 30;     // of fonts, in seconds for each file
};

}  // namespace headless
