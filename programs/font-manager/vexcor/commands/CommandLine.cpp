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

void AddJson(CLI::App& command, Options& options)
{
    command.add_flag("--json", options.json, "Write JSON, one object per font and line");
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
    AddCommand(*app, "install",
               "Write the path of this program to the launch information file, where the plug-in "
               "finds PluginCore when Vexcor is not running",
               Command::kInstall, options);
    CLI::App& add =
        AddCommand(*app, "add", "Add a folder to the font library", Command::kAdd, options);
    AddOperand(add, "FOLDER", "The folder", options);
    CLI::App& list =
        AddCommand(*app, "list",
                   "List the fonts of the library with name, file and state (active: without "
                   "Vexcor; activated: by Vexcor; inactive)",
                   Command::kList, options);
    AddJson(list, options);
    CLI::App& why = AddCommand(
        *app, "why",
        "Explain why a font is or is not active: the documents that hold it, its file, other files "
        "with the same name",
        Command::kWhy, options);
    AddOperand(why, "NAME", "The PostScript name of the font", options);
    AddJson(why, options);
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
