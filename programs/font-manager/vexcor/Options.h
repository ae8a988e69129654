#pragma once

#include <string>
#include <vector>

namespace vexcor {

enum class Command { kRun, kInstall, kAdd, kList, kWhy, kRepair };

struct Options {
    Command command = Command::kRun;
    std::string operand;  // the folder of add, the name of why
    bool json = false;
    std::string log;
};

// One row per command: parser, help and README are made from this table.
struct CommandRow {
    Command command;
    const char* name;
    const char* operand;  // null for none
    bool hasJson;
    const char* help;
};

extern const std::vector<CommandRow> kCommands;

constexpr const char* kJsonHelp = "Write JSON objects, a line each";
constexpr const char* kLogHelp = "Append what is done to FILE, in lines of time, name, level, text";

enum class ParseOutcome { kRun, kDone, kWrongUse };

// Fills `options` from the command line. With kDone, `text` is what was asked for and belongs on
// standard output; with kWrongUse it is what is wrong.
ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                              std::string& text);

}  // namespace vexcor
