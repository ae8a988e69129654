#include "vexcor/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "vexcor/Manual.h"
#include "vexcor/commands/ExitStatus.h"

namespace vexcor {

const std::vector<CommandRow> kCommands = {
    {Command::kRun, "run", nullptr, false,
     "Stay, watch the font library, keep its index fresh and put right what killed programs left; "
     "ends with SIGTERM or SIGINT"},
    {Command::kInstall, "install", nullptr, false,
     "Write the place of this program to the launch information file, by which the plug-in finds "
     "PluginCore while Vexcor doesn't run"},
    {Command::kAdd, "add", "FOLDER", false, "Add a folder to the font library"},
    {Command::kList, "list", nullptr, true,
     "List the fonts of the library: name, state (active: without Vexcor; activated: through it; "
     "inactive) and file"},
    {Command::kWhy, "why", "NAME", true,
     "Tell why the font of this PostScript name is or isn't active: which documents hold it, which "
     "file gives it, which other files have the name"},
    {Command::kRepair, "repair", nullptr, false,
     "Bring database, folder and fontconfig into agreement again; tells what was done"},
};

namespace {

std::string MakeFooter()
{
    std::string text = "Exit status:\n";
    for (const ExitStatusRow& row : kExitStatuses) {
        text += "    " + std::to_string(row.status) + "  " + row.meaning + "\n";
    }
    return text;
}

// A first word that is no command, else empty.
std::string GetWrongCommand(int argc, const char* const* argv)
{
    const std::string word = argc > 1 ? argv[1] : "";
    if (word.empty() || word[0] == '-') return {};
    const auto isIt = [&word](const CommandRow& row) { return row.name == word; };
    return std::any_of(kCommands.begin(), kCommands.end(), isIt) ? std::string() : word;
}

}  // namespace

ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                              std::string& text)
{
    // Not for everyday use, so the help doesn't name it.
    if (argc == 2 && std::string(argv[1]) == "--readme") {
        text = WriteReadme();
        return ParseOutcome::kDone;
    }
    if (const std::string word = GetWrongCommand(argc, argv); !word.empty()) {
        text = "\"" + word + "\" is no command";
        return ParseOutcome::kWrongUse;
    }
    CLI::App app("The font manager's own program.", "Vexcor");
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(MakeFooter());
    app.set_version_flag("--version", "Vexcor " VEXCOR_VERSION);
    app.add_option("--log", options.log, kLogHelp)->option_text("FILE");
    std::vector<CLI::App*> commands;
    for (const CommandRow& row : kCommands) {
        CLI::App* const command = app.add_subcommand(row.name, row.help);
        if (row.operand) {
            command->add_option(row.operand, options.operand)->required()->option_text(" ");
        }
        if (row.hasJson) command->add_flag("--json", options.json, kJsonHelp);
        command->footer(MakeFooter());
        commands.push_back(command);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        text = app.help();
        for (const CLI::App* const command : commands) {
            if (command->parsed()) text = command->help();
        }
        return ParseOutcome::kDone;
    } catch (const CLI::CallForVersion& version) {
        text = std::string(version.what()) + "\n";
        return ParseOutcome::kDone;
    } catch (const CLI::ParseError& error) {
        text = error.what();
        return ParseOutcome::kWrongUse;
    }
    for (size_t position = 0; position < commands.size(); ++position) {
        if (commands[position]->parsed()) options.command = kCommands[position].command;
    }
    if (options.operand.empty() &&
        (options.command == Command::kAdd || options.command == Command::kWhy)) {
        text = "an empty text names nothing";
        return ParseOutcome::kWrongUse;
    }
    return ParseOutcome::kRun;
}

}  // namespace vexcor
