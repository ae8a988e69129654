#include "docfonts/commands/CommandLine.h"

#include <CLI/CLI.hpp>

#include "docfonts/commands/ExitStatus.h"

namespace docfonts {

namespace {

constexpr double kLongestSeconds = 86400;
constexpr int kMostJobs = 256;

console::HelpSection GetStateSection()
{
    return {"States",
            "Of a font on this system, with the file that has it, and of a placed file.",
            {{"installed", "every program of the user has the font"},
             {"in the library", "the font manager has it and can activate it"},
             {"only as another style", "not the font, but one of its family, which is named"},
             {"missing", "neither the font nor one of its family; the placed file is nowhere"},
             {"found", "the placed file is where the document says"},
             {"moved", "it isn't, but a file of its name is beside the document"}}};
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
        "Reports the fonts and placed files of documents, and which of them are here.", "docfonts");
    app->footer(console::FormatSection(GetStateSection()) + "\n" +
                console::FormatSection(GetExitStatusSection()));
    app->set_version_flag("--version", "docfonts " DOCFONTS_VERSION, "Print the version and exit");
    CLI::Option* const files =
        app->add_option("FILE", options.files,
                        "The documents (.ai, .pdf, .eps), and with --recursive folders of them")
            ->option_text("...");
    CLI::Option* const json =
        app->add_flag("--json", options.json, "Write JSON, one object per file and line");
    app->add_flag("--names", options.names, "Write only the names of the fonts, each once")
        ->excludes(json);
    app->add_flag("--missing", options.onlyMissing,
                  "Show only what is missing, and only documents that lack something");
    app->add_flag("--placed", options.placed,
                  "Read the documents that a document places too, to any depth");
    app->add_option("--html", options.html,
                    "Also write the report to FILE, one page that needs nothing else")
        ->option_text("FILE")
        ->check(CLI::Validator(
            [](const std::string& text) {
                return text.empty() ? std::string("must not be empty") : std::string();
            },
            ""));
    app->add_flag("--recursive", options.isRecursive,
                  "Read the documents in folders and in their subfolders");
    CLI::Option* const list =
        app->add_option("--files-from", options.listFile,
                        "Read the paths of more files from FILE, one per line; - is standard input")
            ->option_text("FILE");
    app->add_option("--timeout", options.timeout, "Give up on a file after SECONDS (default: 30)")
        ->option_text("SECONDS")
        ->check(CLI::Range(0.0, kLongestSeconds));
    app->add_option("--jobs", options.jobs,
                    "Read N files at a time (default: the number of processors, at most 8)")
        ->option_text("N")
        ->check(CLI::Range(1, kMostJobs));
    app->callback([files, list] {
        if (files->count() == 0 && list->count() == 0) throw CLI::RequiredError("FILE");
    });
    return app;
}

std::vector<console::HelpSection> ListHelpSections()
{
    return {GetStateSection(), GetExitStatusSection()};
}

console::ParseOutcome ParseCommandLine(int argc, const char* const* argv, Options& options,
                                       std::string& text)
{
    return console::ParseCommandLine(*MakeCommandLine(options), argc, argv, text);
}

}  // namespace docfonts
