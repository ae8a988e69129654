#include "vexcor/commands/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstring>

#include "vexcor/commands/ExitStatus.h"

namespace vexcor {

namespace {

constexpr char kFilesText[] =
    "The launch information file is `Corvanta/com.corvanta.Vexcor-LaunchInfo.conf` in the user's "
    "data folder (`XDG_DATA_HOME`, by default `~/.local/share`). "
    "`PluginFiles/PluginCore.framework` is beside the program. The font library is that of "
    "PluginCore: the folders of `CORVANTA_FONT_LIBRARY` (by default `Corvanta/Library` in the data "
    "folder) and the folders that were added.";

CLI::App& AddCommand(CLI::App& app, const char* name, const char* help, Command command,
                     Options& options)
{
    return *app.add_subcommand(name, help)->callback([command, &options] {
        options.command = command;
    });
}

void AddOperand(CLI::App& command, const char* name, const char* help, Options& options)
{
    const auto isPresent = [](const std::string& text) {
        return text.empty() ? std::string("must not be empty") : std::string();
    };
    command.add_option(name, options.operand, help)
        ->required()
        ->option_text(" ")
        ->check(CLI::Validator(isPresent, ""));
}

void AddWith(CLI::App& app, Options& options)
{
    CLI::App& with = AddCommand(
        app, "with",
        "Run a command while the fonts that the files need are active, those of placed files "
        "included: Vexcor with FILE... -- COMMAND [ARG]... The files are appended to the command, "
        "or take the place of {}: an argument with {} is repeated for each file. Without -- "
        "COMMAND, the user's default application opens the files; Vexcor waits for it",
        Command::kWith, options);
    with.add_option("FILE", options.operands, "A document: .ai, .ait, .pdf or .eps")
        ->required()
        ->option_text(" ");
}

// Returns the position of the "--" that begins the command of `with`; `argc` if there is none.
int FindCommandOfWith(int argc, const char* const* argv)
{
    int at = 1;
    while (at < argc && argv[at][0] == '-') at += std::strcmp(argv[at], "--log") == 0 ? 2 : 1;
    if (at >= argc || std::strcmp(argv[at], "with") != 0) return argc;
    while (at < argc && std::strcmp(argv[at], "--") != 0) ++at;
    return at;
}

void AddJson(CLI::App& command, Options& options,
             const char* help = "Write JSON, one object per font and line")
{
    command.add_flag("--json", options.json, help);
}

void AddList(CLI::App& app, Options& options)
{
    CLI::App& list =
        AddCommand(app, "list",
                   "List the fonts of the library with name, file and state (active: without "
                   "Vexcor; activated: by Vexcor; inactive)",
                   Command::kList, options);
    list.add_option("PATTERN", options.operands,
                    "List only fonts whose PostScript name is like this, with *, ? and [...], in "
                    "upper or lower case")
        ->option_text(" ");
    CLI::Option* const family =
        list.add_option("--family", options.family, "List only fonts whose family is like FAMILY")
            ->option_text("FAMILY");
    CLI::Option* const state = list.add_option("--state", options.state, "List only fonts in STATE")
                                   ->option_text("STATE")
                                   ->check(CLI::IsMember({"active", "activated", "inactive"}));
    CLI::Option* const names =
        list.add_flag("--names", options.names, "Write only the names, one per line")
            ->excludes(family)
            ->excludes(state);
    AddJson(list, options);
    names->excludes("--json");
}

void AddActivation(CLI::App& app, Options& options)
{
    constexpr char kWordHelp[] =
        "A PostScript name or a pattern of names, a font file, a document with its fonts, or a "
        "folder of the library";
    CLI::App& activate = AddCommand(app, "activate",
                                    "Activate fonts of the library until they are deactivated, "
                                    "whatever documents are open",
                                    Command::kActivate, options);
    activate.add_option("NAME", options.operands, kWordHelp)->required()->option_text(" ");
    AddJson(activate, options);
    CLI::App& deactivate = AddCommand(app, "deactivate",
                                      "Deactivate fonts that were activated by `Vexcor activate`; "
                                      "those that open documents hold remain active",
                                      Command::kDeactivate, options);
    CLI::Option* const words =
        deactivate.add_option("NAME", options.operands, kWordHelp)->option_text(" ");
    deactivate.add_flag("--all", options.all, "Deactivate all of them")->excludes(words);
    AddJson(deactivate, options);
    deactivate.callback([&options] {
        options.command = Command::kDeactivate;
        if (options.operands.empty() && !options.all) throw CLI::RequiredError("NAME");
    });
}

}  // namespace

std::unique_ptr<CLI::App> MakeCommandLine(Options& options)
{
    auto app = std::make_unique<CLI::App>("The font manager's own program.", "Vexcor");
    app->require_subcommand(1);
    app->fallthrough();
    app->footer(console::FormatSection(console::DescribeExitStatuses(kExitStatuses, "")));
    app->set_version_flag("--version", "Vexcor " VEXCOR_VERSION, "Print the version and exit");
    app->add_option("--log", options.log, "Append messages to FILE (time, name, level, text)")
        ->option_text("FILE");
    console::HideAliases(*app);

    CLI::App& watch = AddCommand(
        *app, "watch",
        "Watch the font library, keep its index up to date and repair what killed programs left, "
        "until SIGTERM, SIGINT or SIGHUP",
        Command::kWatch, options);
    watch.alias("run");
    AddJson(watch, options, "Write JSON, one object per event and line");
    AddCommand(*app, "install",
               "Write the path of this program to the launch information file, where the plug-in "
               "finds PluginCore when Vexcor is not running",
               Command::kInstall, options);
    CLI::App& add =
        AddCommand(*app, "add", "Add a folder to the font library", Command::kAdd, options);
    AddOperand(add, "FOLDER", "The folder", options);
    AddJson(add, options, "Write a JSON object");
    CLI::App& remove = AddCommand(
        *app, "remove", "Remove a folder that was added; its fonts that are active remain so",
        Command::kRemove, options);
    AddOperand(remove, "FOLDER", "The folder", options);
    AddJson(remove, options, "Write a JSON object");
    AddList(*app, options);
    AddActivation(*app, options);
    CLI::App& why = AddCommand(
        *app, "why",
        "Explain why a font is or is not active: the documents that hold it, its file, other files "
        "with the same name",
        Command::kWhy, options);
    AddOperand(why, "NAME", "The PostScript name of the font", options);
    AddJson(why, options);
    CLI::App& status = AddCommand(
        *app, "status",
        "Show the library, the fonts that Vexcor has activated with their holders, the programs "
        "that use the library, and problems",
        Command::kStatus, options);
    AddJson(status, options, "Write a JSON object");
    AddWith(*app, options);
    AddCommand(*app, "repair",
               "Make database, activation folder and fontconfig agree again; print what was "
               "repaired",
               Command::kRepair, options);
    return app;
}

std::vector<console::HelpSection> ListHelpSections()
{
    return {console::DescribeExitStatuses(kExitStatuses, ""), {"Files", kFilesText, {}}};
}

console::ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                                       std::string& text)
{
    const int end = FindCommandOfWith(argc, argv);
    const console::ParseOutcome outcome =
        console::ParseCommandLine(*MakeCommandLine(options), end, argv, text);
    if (end == argc || outcome != console::ParseOutcome::kRun) return outcome;
    options.words.assign(argv + end + 1, argv + argc);
    if (!options.words.empty() && !options.words.front().empty()) return outcome;
    text = "with: expected a command after --";
    return console::ParseOutcome::kWrongUse;
}

}  // namespace vexcor
