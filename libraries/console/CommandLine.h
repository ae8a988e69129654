#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/ProgramStatus.h"

namespace CLI {
class App;
}

// What a program does with the command line that its CLI::App describes.
namespace console {

enum class ParseOutcome {
    kRun,      // the options are filled in; a command was chosen
    kDone,     // help or version was requested: print the text to standard output, then exit
    kWrongUse  // the text is one line that says what is wrong
};

// Parses the arguments with `app`, which writes into the variables its options are bound to.
//
// text   out: see ParseOutcome; unchanged for kRun
ParseOutcome ParseCommandLine(CLI::App& app, int argc, const char* const* argv, std::string& text);

// A section of the help, the manual page and the README that isn't about options: the exit status,
// the files that the program uses.
struct HelpRow {
    std::string term;  // printed as code, in bold type on the manual page
    std::string meaning;
};
struct HelpSection {
    std::string title;
    std::string text;           // a paragraph above the rows, `code` in backquotes; may be empty
    std::vector<HelpRow> rows;  // may be empty
};

// The section as plain text in two columns, for CLI::App::footer.
std::string FormatSection(const HelpSection& section);

// Describes the exit statuses of a program as a section.
//
// text   the paragraph above the rows; may be empty
template <std::size_t count>
HelpSection DescribeExitStatuses(const base::ProgramStatusRow (&statuses)[count],
                                 const std::string& text)
{
    HelpSection section{"Exit status", text, {}};
    for (const base::ProgramStatusRow& row : statuses) {
        section.rows.push_back({std::to_string(row.status), row.meaning});
    }
    return section;
}

// Makes the help of `app`, and of subcommands that are added later, leave out aliases: they are
// there for scripts that use the former name.
void HideAliases(CLI::App& app);

}  // namespace console
