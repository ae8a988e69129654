#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ScratchFolder.h"
#include "application/Application.h"
#include "model/Host.h"
#include "suites/SuiteTables.h"

// Fonts that the test sets, in place of the system's.
class FakeFonts : public headless::FontSource {
public:
    std::set<std::string> ListActiveNames() override { return active; }
    std::string GetDefaultName(const std::string& language) override
    {
        asked.push_back(language);
        const auto found = defaults.find(language);
        return found == defaults.end() ? "Default-Regular" : found->second;
    }

    std::map<std::string, documents::FontFile> ListFiles() override { return files; }

    std::map<std::string, documents::FontFile> files;
    std::set<std::string> active = {"Default-Regular"};
    std::map<std::string, std::string> defaults;
    std::vector<std::string> asked;
};

// A host that reads every file as `content`, and a scratch folder.
class HostFixture : public testing::Test {
protected:
    HostFixture();
    ~HostFixture() override;

    // Adds a text frame to `content`, with one run per font and a story of its own.
    void AddFrame(const std::vector<std::string>& fontNames);

    // Creates an empty file in the scratch folder and returns its path.
    std::string MakeFile(const std::string& name) const;

    // Starts a journal in the scratch folder; ReadJournal returns its lines so far, except those of
    // the side "world".
    void WriteJournal();
    std::vector<nlohmann::json> ReadJournal() const;

    // Starts the test plug-in of this name, opens files with these names and shuts down.
    void RunPlugin(const std::string& plugin, const std::vector<std::string>& names);
    static std::string GetPluginPath(const std::string& plugin);

    // Acquires a suite and returns its table.
    template <class Suite>
    const Suite& Acquire(const char* name, int version)
    {
        const Suite* suite = nullptr;
        EXPECT_EQ(kHostSuccess, headless::gBasicSuite.AcquireSuite(name, version, &suite));
        return *suite;
    }

    FakeFonts fonts;
    documents::OpenResult content;
    std::unique_ptr<headless::Host> host;
    std::vector<headless::OpenReport> reports;
    const ScratchFolder scratch;
    const std::string folder = scratch.Path();
};
