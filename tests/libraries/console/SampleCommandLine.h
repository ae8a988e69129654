#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

// The values that MakeSampleCommandLine binds its options to.
struct SampleOptions {
    std::string file;
    std::string folder;
    std::string word;
    bool isLoud = false;
};

// A program "pen-case" with the commands draw (alias paint), erase with the same options, and the
// hidden command secret.
inline std::unique_ptr<CLI::App> MakeSampleCommandLine(SampleOptions& options)
{
    auto app = std::make_unique<CLI::App>("Draws things.", "pen-case");
    app->require_subcommand(1);
    app->set_version_flag("--version", "pen-case 1.2", "Print the version and exit");
    CLI::App* const draw = app->add_subcommand("draw", "Draw a thing");
    draw->alias("paint");
    CLI::App* const erase = app->add_subcommand("erase", "Erase a thing");
    for (CLI::App* const command : {draw, erase}) {
        command->add_option("FILE", options.file, "The thing");
        command->add_option("--into", options.folder, "Write into DIR")->option_text("DIR");
        command->add_option("--ink", options.word, "Use COLOUR|none")->option_text("COLOUR");
        command->add_option("--former", options.word)->group("");
        command->add_flag("--loud", options.isLoud, "Print \\ and -");
    }
    app->add_subcommand("secret", "Hidden")->group("");
    return app;
}
