#pragma once

#include <memory>
#include <string>
#include <vector>

#include "console/CommandLine.h"
#include "docfonts/commands/Options.h"

namespace docfonts {

// Describes the options of the program: the only description of them, from which parser, help,
// manual page, README and completion are made.
//
// options   where the result writes what it parses; must outlive the result
std::unique_ptr<CLI::App> MakeCommandLine(Options& options);

// What the manual page and the README say beyond that.
std::vector<console::HelpSection> ListHelpSections();

// Fills `options` from the command line; see console::ParseCommandLine.
console::ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                                       std::string& text);

}  // namespace docfonts
