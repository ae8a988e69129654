#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "SampleCommandLine.h"

// A folder in which a shell completes the command line of pen-case: with the folder drawings, the
// file "dog 1.ai" and the program pen-case, whose fonts have names as no font should have.
class CompletionFixture : public testing::Test {
protected:
    CompletionFixture()
    {
        std::string pattern = testing::TempDir() + "completion-XXXXXX";
        folder = mkdtemp(pattern.data());
        std::filesystem::create_directory(folder / "drawings");
        Write("dog 1.ai", "");
        Write("pen-case",
              "#!/bin/sh\n[ \"$*\" = 'list --names' ] || exit 2\n"
              "printf '%s\\n' DejaVuSans DejaVuSerif 'x$(touch evil)' 'x`touch evil`' \"it's\"\n");
        std::filesystem::permissions(folder / "pen-case", std::filesystem::perms::all);
    }
    ~CompletionFixture() override { std::filesystem::remove_all(folder); }

    // pen-case with a command that completes fonts, one that completes fonts or files, and an
    // option of few values.
    std::unique_ptr<CLI::App> MakeApp()
    {
        auto app = MakeSampleCommandLine(options);
        CLI::App* const why = app->add_subcommand("why", "Explain [why]: it's \\so");
        why->add_option("NAME", options.word, "The font");
        why->add_option("--tone", options.word, "Light or dark")
            ->option_text("TONE")
            ->check(CLI::IsMember(std::vector<std::string>{"light", "dark"}));
        app->add_subcommand("use", "Use")->add_option("NAME|FILE", options.file, "Either");
        return app;
    }

    // A program without commands.
    std::unique_ptr<CLI::App> MakePlainApp()
    {
        auto app = std::make_unique<CLI::App>("Draws things.", "pen-case");
        app->add_option("FILE", options.file, "The thing");
        app->add_option("--into", options.folder, "Write into DIR")->option_text("DIR");
        return app;
    }

    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder / name) << text;
    }

    // Runs the command in the folder; returns the lines that it printed.
    std::vector<std::string> RunInFolder(const std::string& command) const
    {
        const std::string line =
            "cd '" + folder.string() + "' && PATH=.:$PATH && { " + command + "; } >offers";
        EXPECT_EQ(0, std::system(line.c_str())) << command;
        EXPECT_FALSE(std::filesystem::exists(folder / "evil")) << "a font's name was evaluated";
        std::ifstream stream(folder / "offers");
        std::vector<std::string> offers;
        for (std::string offer; std::getline(stream, offer);) offers.push_back(offer);
        return offers;
    }

    static bool HasShell(const std::string& shell)
    {
        return std::system(("command -v " + shell + " >/dev/null").c_str()) == 0;
    }

    std::filesystem::path folder;
    SampleOptions options;
};
