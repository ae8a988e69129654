#pragma once

#include <string>
#include <vector>

#include "console/CommandLine.h"

// Documentation of a program, generated from its CLI::App, so that it can't differ from what the
// program accepts. Commands and options with an empty group are hidden from help and left out.
namespace console {

// The manual page in section 1, in the man macros of roff. The description of `app` is the line
// that apropos(1) shows.
std::string WriteManPage(const CLI::App& app, const std::vector<HelpSection>& sections);

// The reference part of the program's README in Markdown, from the heading "## Commands" to the
// end of the file; from "## Usage" for a program without commands.
std::string WriteReadmeSection(const CLI::App& app, const std::vector<HelpSection>& sections);

// `readme` with its reference part, if it has one, replaced by `section`, otherwise with `section`
// added.
std::string ReplaceReadmeSection(const std::string& readme, const std::string& section);

}  // namespace console
