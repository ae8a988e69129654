#include "application/Options.h"

#include <CLI/CLI.hpp>

#include "application/ExitStatus.h"
#include "application/MissingFontsDialog.h"
#include "commands/Manual.h"
#include "session/ActionTable.h"

namespace headless {

const std::vector<OptionRow> kOptions = {
    {"--json", nullptr, "Write one JSON object per file, a line each", &Options::json, nullptr,
     nullptr, nullptr},
    {"--home", "DIR", "Use DIR as home folder: settings, caches and active fonts are below it",
     nullptr, &Options::home, nullptr, nullptr},
    {"--library", "DIR", "Look for fonts in DIR; may be given several times", nullptr, nullptr,
     &Options::libraries, nullptr},
    {"--plugin", "PATH", "Load this plug-in: a folder X.aip, or the module itself", nullptr,
     &Options::plugin, nullptr, nullptr},
    {"--frameworks", "DIR", "The host's private frameworks: PlugPlugOwl.framework and others",
     nullptr, &Options::frameworks, nullptr, nullptr},
    {"--language", "TAG", "Language of the host's dialogs: en, es, fr, it, de or ja", nullptr,
     &Options::language, nullptr, nullptr},
    {"--journal", "FILE", "Write every message and call to FILE, one JSON object a line", nullptr,
     &Options::journal, nullptr, nullptr},
    {"--log", "FILE", "Append what is told to FILE, in lines of time, name, level, text", nullptr,
     &Options::log, nullptr, nullptr},
    {"--exec", "COMMAND",
     "Run COMMAND with the shell while each document is open; DOCUMENT holds its path", nullptr,
     &Options::command, nullptr, nullptr},
    {"--hold", "SECONDS", "Keep the documents open for so long before they are closed", nullptr,
     nullptr, nullptr, &Options::hold},
    {"--interactive", nullptr, "Ask on the terminal which fonts to activate", &Options::interactive,
     nullptr, nullptr, nullptr},
};

const std::vector<OptionRow> kFontsOptions = {
    {"--json", nullptr, "Write one JSON object per file, a line each", &Options::json, nullptr,
     nullptr, nullptr},
    {"--names", nullptr, "Write the names of the fonts alone, each once", &Options::names, nullptr,
     nullptr, nullptr},
    {"--recursive", nullptr, "Read the documents in folders and in the folders below",
     &Options::recursive, nullptr, nullptr, nullptr},
    {"--timeout", "SECONDS", "Give a file up that takes longer; 30 without this option", nullptr,
     nullptr, nullptr, &Options::timeout},
};

namespace {

std::string MakeFooter()
{
    std::string text = "Exit status, the greatest that applies:\n";
    for (const ExitStatusRow& row : kExitStatuses) {
        std::string number = std::to_string(row.status);
        number.insert(0, number.size() < 5 ? 5 - number.size() : 0, ' ');
        text += number + "  " + row.meaning + "\n";
    }
    return text;
}

void AddOptions(const std::vector<OptionRow>& rows, CLI::App& command, Options& options)
{
    for (const OptionRow& row : rows) {
        CLI::Option* option = nullptr;
        if (row.flag != nullptr) option = command.add_flag(row.name, options.*row.flag, row.help);
        if (row.text != nullptr) option = command.add_option(row.name, options.*row.text, row.help);
        if (row.list != nullptr) {
            option = command.add_option(row.name, options.*row.list, row.help);
            option->expected(1)->take_all()->allow_extra_args(false);
        }
        if (row.number != nullptr) {
            option = command.add_option(row.name, options.*row.number, row.help);
            option->check(CLI::Range(0.0, 86400.0));
        }
        if (row.argument != nullptr) option->option_text(row.argument);
    }
}

void AddHostOptions(CLI::App& command, Options& options)
{
    AddOptions(kOptions, command, options);
    std::vector<std::string> languages;
    for (const HostLanguage& language : kHostLanguages) languages.emplace_back(language.tag);
    command.get_option("--language")->check(CLI::IsMember(languages));
}

}  // namespace

ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                              std::string& text)
{
    // Neither is for everyday use, so the help doesn't name them.
    const std::string only = argc == 2 ? argv[1] : "";
    if (only == "--man" || only == "--readme") {
        text = only == "--man" ? WriteManualPage() : WriteReadme();
        return ParseOutcome::kDone;
    }
    CLI::App app("Opens documents as a design program with the font plug-in would.",
                 "headless-host");
    app.require_subcommand(1);
    app.footer(MakeFooter());
    CLI::App* const open = app.add_subcommand("open", "Open documents and tell of their fonts");
    open->add_option("FILE", options.files, "The documents")->required()->option_text("...");
    AddHostOptions(*open, options);
    open->footer(MakeFooter());
    CLI::App* const run = app.add_subcommand("run", "Run a session: a line with an action each");
    run->add_option("FILE", options.session, "The session; standard input without it or with -")
        ->option_text(" ");
    AddHostOptions(*run, options);
    run->footer("Actions:\n" + DescribeActions() + "\n" + MakeFooter());
    CLI::App* const fonts =
        app.add_subcommand("fonts", "Tell of the fonts of documents, without the plug-in");
    fonts->add_option("FILE", options.files, "The documents")->required()->option_text("...");
    AddOptions(kFontsOptions, *fonts, options);
    fonts->get_option("--names")->excludes(fonts->get_option("--json"));
    fonts->footer(MakeFooter());
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        text = open->parsed()    ? open->help()
               : run->parsed()   ? run->help()
               : fonts->parsed() ? fonts->help()
                                 : app.help();
        return ParseOutcome::kDone;
    } catch (const CLI::ParseError& error) {
        text = error.what();
        return ParseOutcome::kWrongUse;
    }
    options.action = run->parsed()     ? Command::kRun
                     : fonts->parsed() ? Command::kFonts
                                       : Command::kOpen;
    return ParseOutcome::kRun;
}

}  // namespace headless
