#pragma once

#include <string>

namespace vexcor {

enum class Command { kWatch, kInstall, kAdd, kList, kWhy, kRepair, kPanel };

// What the command line asks for.
struct Options {
    Command command = Command::kWatch;
    std::string operand;  // the folder of add, the PostScript name of why
    bool json = false;    // of list and why
    bool noOpen = false;  // of panel
    std::string log;      // a file; empty for none
};

}  // namespace vexcor
