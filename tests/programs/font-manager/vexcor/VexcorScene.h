#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "FontTestHome.h"
#include "plugin-core/services/Services.h"

// The program in a home of its own, under a name that no host takes for the running font manager.
class VexcorScene : public testing::Test {
protected:
    // Runs it with these arguments; its exit status. What it wrote is in `output`.
    int Run(const std::vector<std::string>& arguments);

    // Starts `Vexcor watch` and waits until it watches the library.
    std::unique_ptr<ChildProcess> StartDaemon(const std::vector<std::string>& arguments = {}) const;

    // The database as any program has it.
    plugincore::Services& OpenServices();

    // The launch information file.
    std::filesystem::path GetLaunchFile() const;

    static std::string ReadFile(const std::filesystem::path& file);

    FontTestHome home;
    std::string output;

private:
    std::unique_ptr<plugincore::Services> mServices;
};
