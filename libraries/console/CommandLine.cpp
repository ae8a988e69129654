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

bool IsCommand(const CLI::App& app, const std::string& word)
{
    const auto commands = app.get_subcommands({});
    return std::any_of(commands.begin(), commands.end(),
                       [&](const CLI::App* known) { return known->check_name(word); });
}

// Returns what is wrong with the arguments before the command, else "": the first that is neither
// an option of the program nor a command. CLI11 would report that no command was given.
std::string FindMistakeBeforeCommand(const CLI::App& app, int argc, const char* const* argv)
{
    std::string mistake;
    if (app.get_subcommands({}).empty()) return mistake;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--" || IsCommand(app, word)) break;
        if (word.empty() || word[0] != '-') return "unknown command \"" + word + "\"";
        const std::string name = word.substr(0, word.find('='));
        const CLI::Option* const option = app.get_option_no_throw(name);
        if (option == nullptr) {
            // The word after it may be its argument, or the command.
            if (mistake.empty()) mistake = "unknown option \"" + name + "\" before the command";
            const bool isNextKnown = i + 1 < argc && IsCommand(app, argv[i + 1]);
            if (!isNextKnown && i + 1 < argc && argv[i + 1][0] != '-') {
                return "unknown command \"" + std::string(argv[i + 1]) + "\"";
            }
        } else if (option->get_items_expected_max() > 0 && name == word) {
            ++i;  // its argument
        }
    }
    return mistake;
}

}  // namespace

ParseOutcome ParseCommandLine(CLI::App& app, int argc, const char* const* argv, std::string& text)
{
    if (const std::string mistake = FindMistakeBeforeCommand(app, argc, argv); !mistake.empty()) {
        text = mistake;
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
