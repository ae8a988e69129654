#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <string>

#include "GetPathToRunningProcess.h"
#include "PCILoader.h"
#include "ScratchFolder.h"
#include "SleepingProcess.h"

namespace {

// Runs the whole search with a real process of the name that PCILoader looks for.
TEST(LiveProcess, LeadsToTheFrameworkInItsPluginFiles)
{
    std::string other;
    if (GetPathToRunningProcessExe("Vexcor", other) == 0U) {
        GTEST_SKIP() << "another process of that name runs in " << other;
    }
    const ScratchFolder scratch;
    const std::string folder = std::filesystem::canonical(scratch.Path());
    ASSERT_EQ(0, setenv("XDG_DATA_HOME", folder.c_str(), 1));
    std::filesystem::create_directory(folder + "/PluginFiles");
    std::filesystem::create_directory_symlink(
        std::string(SCRIPTED_PLUGIN_CORE_FOLDER) + "/complete/PluginCore.framework",
        folder + "/PluginFiles/PluginCore.framework");

    const SleepingProcess process(folder + "/Vexcor");
    const std::unique_ptr<PCILoader> loader(PCILoader::GetSharedInstance());
    ASSERT_NE(nullptr, loader);
    EXPECT_EQ(folder + "/PluginFiles/PluginCore.framework", loader->frameworkPath);
    EXPECT_EQ(0, loader->missingFunctionCount);
}

}  // namespace
