#pragma once

#include "SessionFiles.h"

// A folder with a home and a library of its own, in which programs run with one of two plug-ins:
// the one for Linux, or the bundle for macOS in its loader. Both are in the folder
// TypeloftSPEA.aip.
class PluginPlace : public SessionFiles {
public:
    enum Kind { kLinux, kMachO };

    explicit PluginPlace(Kind kind);

    // Runs `headless-host COMMAND --journal journal`. Sets output, errors and status.
    void RunWithJournal(const std::string& command);

    std::string Journal() const { return ReadFile(scratch / "journal"); }
    // The text with FOLDER in place of the scratch folder, and without the dates of files that the
    // panel's names of fonts contain.
    std::string WithoutFolder(std::string text) const;

    using EndToEnd::errors;
    using EndToEnd::home;
    using EndToEnd::library;
    using EndToEnd::output;
    using EndToEnd::pluginCore;
    using EndToEnd::program;
    using EndToEnd::ReadFile;
    using EndToEnd::Run;
    using EndToEnd::runFolder;
    using EndToEnd::Sample;
    using EndToEnd::scratch;
    using EndToEnd::WriteFile;
    using SessionFiles::CopySession;

    int status = -1;

private:
    void TestBody() override {}
};

// Runs the same with both plug-ins. A test is skipped if the bundle is not built, or if the loader
// says that it cannot run it: then the test has neither passed nor failed.
class TwoPlugins : public testing::Test {
protected:
    void SetUp() override;

    // Skips the test if a program ended with the loader's status for a bundle that it cannot run.
    void SkipIfNotRun(int status) const;

    // Runs `headless-host COMMAND` in both places and expects the same status, output, errors and
    // journal, line by line. Check IsSkipped() afterwards.
    void ExpectTheSame(const std::string& command);

    // Runs compare-journals. Returns its exit status; its output is in `comparison`.
    int CompareJournals();

    PluginPlace onLinux{PluginPlace::kLinux};
    PluginPlace machO{PluginPlace::kMachO};
    std::string comparison;
};
