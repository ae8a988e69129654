#pragma once

#include <string>
#include <vector>

namespace headless {

enum class Command { kOpen, kRun, kFonts };

struct Options {
    Command action = Command::kOpen;
    std::vector<std::string> files;  // of open and fonts
    std::string session;             // of run: a file, "-" or empty for standard input
    bool json = false;
    bool interactive = false;
    std::string home;
    std::vector<std::string> libraries;
    std::string plugin;
    std::string frameworks;
    std::string language = "en";
    std::string journal;
    std::string log;
    std::string command;
    double hold = 0;
    bool names = false;      // of fonts
    bool recursive = false;  // of fonts
    double timeout = 30;     // of fonts
};

// One row per option: parser, help and manual are made from this table. Exactly one of the four
// members is set, which tells what the option takes.
struct OptionRow {
    const char* name;
    const char* argument;  // null for a switch
    const char* help;
    bool Options::*flag;
    std::string Options::*text;
    std::vector<std::string> Options::*list;
    double Options::*number;
};

extern const std::vector<OptionRow> kOptions;       // of open and run
extern const std::vector<OptionRow> kFontsOptions;  // of fonts

enum class ParseOutcome { kRun, kDone, kWrongUse };

// Fills `options` from the command line. With kDone, `text` is what was asked for (help, manual)
// and belongs on standard output; with kWrongUse it is what is wrong.
ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                              std::string& text);

}  // namespace headless
