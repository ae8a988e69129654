#pragma once

#include <string>
#include <vector>

namespace vexcor {

enum class Command {
    kWatch,
    kInstall,
    kAdd,
    kRemove,
    kList,
    kActivate,
    kDeactivate,
    kWhy,
    kStatus,
    kPanel,
    kWith,
    kRepair
};

// What the command line asks for.
struct Options {
    Command command = Command::kWatch;
    std::string operand;                // the folder of add, the PostScript name of why
    std::vector<std::string> operands;  // the files of with; words of list, activate, deactivate
    std::vector<std::string> words;     // of with: COMMAND and its arguments; empty for none
    bool json = false;
    bool noOpen = false;  // of panel
    bool names = false;   // of list
    bool all = false;     // of deactivate
    std::string family;   // of list; empty for all
    std::string state;    // the same
    std::string log;      // a file; empty for none
};

}  // namespace vexcor
