#include "commands/CommandLine.h"

#include <CLI/CLI.hpp>

#include "application/ExitStatus.h"
#include "application/MissingFontsDialog.h"
#include "session/ActionTable.h"
#include "session/ExpectAction.h"

namespace headless {

namespace {

constexpr double kLongestSeconds = 86400;

constexpr int kMostJobs = 256;
// Of random messages in one script: more are a script that is hard to shrink.
constexpr size_t kMostScriptLength = 100000;

constexpr char kJsonHelp[] = "Write JSON, one object per file and line";

constexpr char kPluginHelp[] = "Load this plug-in: a folder X.aip, or the module itself";

constexpr char kScriptText[] =
    "A script has one action per line. Words are separated by spaces; spaces within double or "
    "single quotes belong to the word. A word that begins with # starts a comment, which ends "
    "with the line. An invalid line ends the script; an expectation that is not met does not. "
    "Without "
    "a file, or with -, the lines are read from standard input; on a terminal there is a prompt "
    "with history and completion.";

CLI::App& AddCommand(CLI::App& app, const char* name, const char* help, Command command,
                     Options& options)
{
    return *app.add_subcommand(name, help)->callback([command, &options] {
        options.action = command;
    });
}

void AddFiles(CLI::App& command, Options& options)
{
    command.add_option("FILE", options.files, "The documents")->required()->option_text("...");
}

// Adds an option that has an argument and writes it to `value`.
template <class Value>
CLI::Option& AddOption(CLI::App& command, const char* name, const char* argument, Value& value,
                       const char* help)
{
    return *command.add_option(name, value, help)->option_text(argument);
}

void AddHostOptions(CLI::App& command, Options& options)
{
    std::vector<std::string> languages;
    for (const HostLanguage& language : kHostLanguages) languages.emplace_back(language.tag);
    const CLI::Range seconds(0.0, kLongestSeconds);

    command.add_flag("--json", options.json, kJsonHelp);
    AddOption(command, "--home", "DIR", options.home,
              "Use DIR as home folder, with the settings, caches and active fonts in it");
    AddOption(command, "--library", "DIR", options.libraries,
              "Look for fonts in DIR; may be given several times")
        .expected(1)
        ->take_all()
        ->allow_extra_args(false);
    AddOption(command, "--plugin", "PATH", options.plugin, kPluginHelp);
    AddOption(command, "--frameworks", "DIR", options.frameworks,
              "Load the host's private frameworks, PlugPlugOwl.framework and others, from DIR "
              "(default: Frameworks beside the program's folder)");
    AddOption(command, "--language", "TAG", options.language,
              "Language of the host's dialogs: en, es, fr, it, de or ja (default: en)")
        .check(CLI::IsMember(languages));
    AddOption(command, "--journal", "FILE", options.journal,
              "Write every message and call to FILE, one JSON object per line");
    AddOption(command, "--log", "FILE", options.log,
              "Append messages to FILE (time, name, level, text)");
    AddOption(command, "--exec", "COMMAND", options.command,
              "Run COMMAND in the shell while each document is open; the environment variable "
              "DOCUMENT is its path");
    AddOption(command, "--keep-open", "SECONDS", options.keepOpen,
              "Keep documents open for SECONDS before closing them")
        .check(seconds);
    // The former name, for existing scripts.
    command.add_option("--hold", options.keepOpen)->check(seconds)->group("");
    command.add_flag("--interactive", options.interactive,
                     "Ask on the terminal which fonts to activate");
}

void AddFontsOptions(CLI::App& command, Options& options)
{
    CLI::Option* const json = command.add_flag("--json", options.json, kJsonHelp);
    command.add_flag("--names", options.names, "Write only the names of the fonts, each once")
        ->excludes(json);
    command.add_flag("--recursive", options.recursive,
                     "Read the documents in folders and in their subfolders");
    AddOption(command, "--timeout", "SECONDS", options.timeout,
              "Give up on a file after SECONDS (default: 30)")
        .check(CLI::Range(0.0, kLongestSeconds));
}

void AddReplayOptions(CLI::App& command, Options& options)
{
    command.add_option("JOURNAL", options.session, "What --journal has written")
        ->required()
        ->option_text(" ");
    command.add_flag("--json", options.json, "Write the result as a JSON object");
    AddOption(command, "--plugin", "PATH", options.plugin, kPluginHelp);
    AddOption(command, "--frameworks", "DIR", options.frameworks,
              "Load the event bus from DIR (default: Frameworks beside the program's folder)");
    AddOption(command, "--update", "FILE", options.update,
              "Compare nothing, and write the journal of this run to FILE");
}

void AddValidateOptions(CLI::App& command, Options& options)
{
    ValidateOptions& validate = options.validate;
    command
        .add_option("PLUGIN", options.plugin, "The plug-in: a folder X.aip, or the module itself")
        ->option_text(" ");
    AddOption(command, "--level", "N", validate.level,
              "Test the rules of levels 1 to N; 10 is the most thorough (default: 5)")
        .check(CLI::Range(1, 10));
    AddOption(command, "--rule", "ID", validate.rules,
              "Test this rule, whatever its level, and no others; may be given several times")
        .expected(1)
        ->take_all()
        ->allow_extra_args(false);
    command.add_flag("--list", validate.lists, "Print all rules and exit");
    AddOption(command, "--seed", "N", validate.seed,
              "Make the random messages from the seeds N and following (default: 1)")
        .check(CLI::PositiveNumber);
    AddOption(command, "--count", "N", validate.count,
              "Send N random messages of each kind (default: 5000)");
    AddOption(command, "--length", "N", validate.length,
              "Send N of them in one process, from one seed (default: 200)")
        .check(CLI::Range(size_t{1}, kMostScriptLength));
    AddOption(command, "--jobs", "N", validate.jobs,
              "Run N cases at a time (default: the number of processors)")
        .check(CLI::Range(1, kMostJobs));
    AddOption(command, "--time", "SECONDS", validate.seconds,
              "Begin no case after SECONDS; the table says how many were skipped")
        .check(CLI::Range(0.0, kLongestSeconds));
    command.add_flag("--json", options.json, "Write JSON, one object per case and line");
    AddOption(command, "--junit", "FILE", validate.junit,
              "Write the outcomes to FILE, as JUnit's XML");
    AddOption(command, "--output-dir", "DIR", validate.outputFolder,
              "Write the script, the journal and the outcome of each failed case to DIR");
    AddOption(command, "--profile", "NAME", validate.profile,
              "typeloft includes the rules that are special to TypeloftSPEA, any leaves them out "
              "(default: typeloft if the module is called TypeloftSPEA, else any)")
        .check(CLI::IsMember({"typeloft", "any"}));
}

console::HelpSection GetExitStatusSection()
{
    return console::DescribeExitStatuses(kExitStatuses,
                                         "If several apply, the greatest is returned.");
}

}  // namespace

std::unique_ptr<CLI::App> MakeCommandLine(Options& options)
{
    auto app = std::make_unique<CLI::App>(
        "Opens documents as a design program with the font plug-in would.", "headless-host");
    const std::string statuses = console::FormatSection(GetExitStatusSection());
    app->require_subcommand(1);
    app->footer(statuses);
    app->set_version_flag("--version", "headless-host " HEADLESS_HOST_VERSION,
                          "Print the version and exit");
    console::HideAliases(*app);

    CLI::App& open =
        AddCommand(*app, "open", "Open documents and report their fonts", Command::kOpen, options);
    AddFiles(open, options);
    AddHostOptions(open, options);

    CLI::App& script =
        AddCommand(*app, "script", "Run a script, one action per line", Command::kScript, options);
    script.alias("run");
    script.add_option("FILE", options.session, "The script; standard input if absent or -")
        ->option_text(" ");
    AddHostOptions(script, options);
    script.footer("Actions:\n" + DescribeActions() + "\n" + statuses);

    CLI::App& replay =
        AddCommand(*app, "replay", "Play a journal to the plug-in and compare its calls",
                   Command::kReplay, options);
    AddReplayOptions(replay, options);

    CLI::App& fonts =
        AddCommand(*app, "fonts", "Report the fonts of documents, without the plug-in",
                   Command::kFonts, options);
    AddFiles(fonts, options);
    AddFontsOptions(fonts, options);

    CLI::App& validate = AddCommand(*app, "validate", "Break a plug-in on purpose, rule by rule",
                                    Command::kValidate, options);
    AddValidateOptions(validate, options);
    validate.callback([&options] {
        options.action = Command::kValidate;
        if (options.plugin.empty() && !options.validate.lists) throw CLI::RequiredError("PLUGIN");
    });
    return app;
}

std::vector<console::HelpSection> ListHelpSections()
{
    console::HelpSection actions{"Scripts", kScriptText, {}};
    for (const ActionRow& row : kActions) actions.rows.push_back({GetUsage(row), row.help});
    console::HelpSection expectations{"Expectations", "What the action `expect` checks.", {}};
    for (const ExpectRow& row : kExpectations) {
        expectations.rows.push_back({GetUsage(row), row.help});
    }
    return {actions, expectations, GetExitStatusSection()};
}

console::ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                                       std::string& text)
{
    return console::ParseCommandLine(*MakeCommandLine(options), argc, argv, text);
}

}  // namespace headless
