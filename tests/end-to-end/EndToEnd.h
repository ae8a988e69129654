#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "ScratchFolder.h"

// The name of the launch information file.
inline constexpr char kLaunchInformationName[] = "com.corvanta.Vexcor-LaunchInfo.conf";

// Runs the host program with the real plug-in in a home folder of the test's own. The machine's
// fonts are hidden: fontconfig knows only DejaVuSansMono, which becomes the host's default font,
// and the activated fonts. The plug-in treats every font whose name begins with that of a default
// font as one of the host, so the library contains others: DejaVuSans and DejaVuSerif-Bold.
class EndToEnd : public testing::Test {
protected:
    EndToEnd();

    // Runs `headless-host open ARGUMENTS` in `runFolder`; its output is in `output` and `errors`
    // afterwards. Returns its exit status; -1 if a signal ended it.
    int Open(const std::string& arguments);

    // The same for any subcommand, such as "script FILE".
    int Run(const std::string& commandLine);

    // The shell command that Run runs, without the redirections.
    std::string MakeCommand(const std::string& commandLine) const;

    // The JSON lines of the last run: one per file, in order.
    std::vector<nlohmann::json> Reports() const;

    // The state of each font of a report, by PostScript name.
    static std::map<std::string, std::string> States(const nlohmann::json& report);

    // Copies a sample to the scratch folder; returns its name.
    std::string Sample(const std::string& name) const;

    // The PostScript names of the active fonts, from fc-list with this home folder.
    std::set<std::string> ActiveFonts() const;

    // The lines of a file in the scratch folder, such as the names that fc-list printed. A missing
    // file fails the test.
    std::set<std::string> ReadNames(const std::filesystem::path& file) const;

    // Copies PluginCore.framework to a folder that the test may add files to; returns the folder.
    std::filesystem::path CopyOfPluginCore() const;

    void WriteFile(const std::filesystem::path& file, const std::string& bytes) const;
    std::string ReadFile(const std::filesystem::path& file) const;

    // The font files below the user's font folder.
    std::vector<std::string> FontFilesInHome() const;

    const ScratchFolder folder;
    std::filesystem::path scratch = folder.Path();
    std::filesystem::path home;
    std::filesystem::path
        runFolder;  // the current folder of programs; the scratch folder by default

    std::filesystem::path library = "library";  // in the scratch folder

    std::filesystem::path frameworks = PRIVATE_FRAMEWORKS_FOLDER;  // of the host

    std::filesystem::path program = HEADLESS_HOST_PROGRAM;
    std::filesystem::path plugin = PLUG_IN_FOLDER;

    // The folder that contains PluginCore.framework, which each run writes a launch information
    // file for. Empty: no such file is written.
    std::filesystem::path pluginCore;
    std::string output;
    std::string errors;

    // Shell commands that set the home folder for the commands that follow.
    std::string EnvironmentOfHome() const;

private:
    void Install() const;
};
