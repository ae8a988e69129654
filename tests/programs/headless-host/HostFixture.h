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

// Fonts as the test says, instead of the system's.
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

// A host whose documents are `content`, whatever the file holds, and a scratch folder.
class HostFixture : public testing::Test {
protected:
    HostFixture();
    ~HostFixture() override;

    // A frame with one run per font; its story is its own.
    void AddFrame(const std::vector<std::string>& fontNames);

    // An empty file in the scratch folder.
    std::string MakeFile(const std::string& name) const;

    // The lines of the journal, which is written to the scratch folder from here on.
    void WriteJournal();
    std::vector<nlohmann::json> ReadJournal() const;

    // Opens `names` one after the other under the guest of this name, then shuts down.
    void RunGuest(const std::string& guest, const std::vector<std::string>& names);
    static std::string GetGuestPath(const std::string& guest);

    // The suite's table, acquired.
    template <class Suite>
    const Suite& Acquire(const char* name, int version)
    {
        const Suite* suite = nullptr;
        EXPECT_EQ(headless::gBasicSuite.AcquireSuite(name, version, &suite), kHostSuccess);
        return *suite;
    }

    FakeFonts fonts;
    documents::OpenResult content;
    std::unique_ptr<headless::Host> host;
    std::vector<headless::OpenReport> reports;
    const ScratchFolder scratch;
    const std::string folder = scratch.Path();
};
