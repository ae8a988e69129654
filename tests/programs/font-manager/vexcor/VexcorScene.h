#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "FontTestHome.h"
#include "plugin-core/services/Services.h"

// A test that runs Vexcor in a home folder of its own. The executable has another name, so that no
// host outside the test takes it for the running font manager.
class VexcorScene : public testing::Test {
protected:
    // Runs the program, sets `output` to what it wrote and returns its exit status, or minus the
    // number of the signal that ended it.
    int Run(const std::vector<std::string>& arguments);

    // Starts `Vexcor watch` and waits until it watches the library.
    std::unique_ptr<ChildProcess> StartDaemon(const std::vector<std::string>& arguments = {}) const;

    // The services of plugin-core in this process, on the database of the home folder.
    plugincore::Services& OpenServices();

    // The path of the launch information file.
    std::filesystem::path GetLaunchFile() const;

    static std::string ReadFile(const std::filesystem::path& file);

    FontTestHome home;
    std::string output;

private:
    std::unique_ptr<plugincore::Services> mServices;
};
