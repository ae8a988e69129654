#pragma once

#include <string>
#include <vector>

namespace vexcor {

enum class Command { kWatch, kInstall, kAdd, kList, kWhy, kRepair, kWith };

// What the command line asks for.
struct Options {
    Command command = Command::kWatch;
    std::string operand;                // the folder of add, the PostScript name of why
    std::vector<std::string> operands;  // the files of with
    std::vector<std::string> words;     // of with: COMMAND and its arguments; empty for none
    bool json = false;                  // of list and why
    std::string log;                    // a file; empty for none
};

}  // namespace vexcor
