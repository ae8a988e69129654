#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "ScratchFolder.h"

// Runs the host program with the real plug-in in a home folder of the test's own. The machine's
// fonts are hidden: fontconfig knows DejaVuSansMono, which so becomes the host's default font, and
// whatever is activated. Whatever begins with the default font's name counts as the host's own, so
// the library holds fonts that don't: DejaVuSans and DejaVuSerif-Bold.
class EndToEnd : public testing::Test {
protected:
    EndToEnd();

    // The exit status of `headless-host open ARGUMENTS`, run in `runFolder`; -1 if a signal
    // ended it. What it wrote is in `output` and `errors`.
    int Open(const std::string& arguments);

    // The same for any command of `headless-host`, as "script FILE".
    int Run(const std::string& commandLine);

    // The line of JSON for each file, in order, of the last run.
    std::vector<nlohmann::json> Reports() const;

    // The state of each font of a report, by PostScript name.
    static std::map<std::string, std::string> States(const nlohmann::json& report);

    // Copies a sample to the scratch folder; returns its name.
    std::string Sample(const std::string& name) const;

    // PostScript names that fc-list of another process sees in this home folder.
    std::set<std::string> ActiveFonts() const;

    // A folder with a PluginCore of the test's own that it may add files to.
    std::filesystem::path CopyOfPluginCore() const;

    void WriteFile(const std::filesystem::path& file, const std::string& bytes) const;
    std::string ReadFile(const std::filesystem::path& file) const;

    // Fonts that were left below the user's font folder, in whatever state.
    std::vector<std::string> FontFilesInHome() const;

    const ScratchFolder folder;
    std::filesystem::path scratch = folder.Path();
    std::filesystem::path home;
    std::filesystem::path runFolder;  // that programs are run in: the scratch folder

    // The folder that holds PluginCore.framework. A launch information file leads there; with an
    // empty path there is none.
    std::filesystem::path pluginCore;
    std::string output;
    std::string errors;

    // Text for a shell that has what follows it run in the test's home.
    std::string EnvironmentOfHome() const;

private:
    void Install() const;
};
