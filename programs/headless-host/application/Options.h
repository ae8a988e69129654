#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace headless {

enum class Command { kOpen, kScript, kFonts, kReplay, kValidate };

// What only validate has.
struct ValidateOptions {
    int level = 5;           // 1 to 10
    std::vector<int> rules;  // instead of those of the level; empty: those of the level
    bool lists = false;
    unsigned long seed = 1;
    size_t count = 5000;  // random messages of each kind
    size_t length = 200;  // of these, in one script
    unsigned jobs = 0;    // 0: as many as there are processors
    double seconds = 0;   // for all cases; 0: no limit
    std::string junit;
    std::string outputFolder;
    std::string profile;  // "typeloft", "any", or "" for the one that the module's name tells
};

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
    std::string plugin;  // of validate as well
    std::string frameworks;
    std::string language = "en";  // a tag of kHostLanguages
    std::string journal;
    std::string log;
    std::string command;     // run by the shell while each document is open
    double keepOpen = 0;     // in seconds
    bool names = false;      // of fonts
    bool recursive = false;  // of fonts
    double timeout = 30;     // of fonts, in seconds for each file
    ValidateOptions validate;
};

}  // namespace headless
