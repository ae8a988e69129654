#include "console/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace console {

namespace {

class FormatterWithoutAliases : public CLI::Formatter {
public:
    std::string make_subcommand(const CLI::App* command) const override
    {
        std::stringstream line;
        CLI::detail::format_help(line, command->get_name(), command->get_description(),
                                 get_column_width());
        return line.str();
    }
};

// Returns the first argument if it is neither an option nor a command, else "". CLI11 would report
// that no command was given.
std::string FindUnknownCommand(const CLI::App& app, int argc, const char* const* argv)
{
    const std::string word = argc > 1 ? argv[1] : "";
    if (word.empty() || word[0] == '-') return {};
    const auto commands = app.get_subcommands({});
    const bool isKnown = std::any_of(commands.begin(), commands.end(), [&](const CLI::App* known) {
        return known->check_name(word);
    });
    return isKnown ? std::string() : word;
}

}  // namespace

ParseOutcome ParseCommandLine(CLI::App& app, int argc, const char* const* argv, std::string& text)
{
    if (const std::string word = FindUnknownCommand(app, argc, argv); !word.empty()) {
        text = "unknown command \"" + word + "\"";
        return ParseOutcome::kWrongUse;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        text = app.help();  // that of the subcommand if one was given
        return ParseOutcome::kDone;
    } catch (const CLI::CallForVersion& version) {
        text = std::string(version.what()) + "\n";
        return ParseOutcome::kDone;
    } catch (const CLI::ParseError& error) {
        text = error.what();
        return ParseOutcome::kWrongUse;
    }
    return ParseOutcome::kRun;
}

std::string FormatSection(const HelpSection& section)
{
    std::string text = section.title + ":\n";
    if (!section.text.empty()) text += "  " + section.text + "\n";
    size_t width = 0;
    for (const HelpRow& row : section.rows) width = std::max(width, row.term.size());
    for (const HelpRow& row : section.rows) {
        text +=
            "  " + row.term + std::string(width + 2 - row.term.size(), ' ') + row.meaning + "\n";
    }
    return text;
}

void HideAliases(CLI::App& app) { app.formatter(std::make_shared<FormatterWithoutAliases>()); }

}  // namespace console
