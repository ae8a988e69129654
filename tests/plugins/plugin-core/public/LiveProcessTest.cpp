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

// The whole search with a process that really runs under the name that is looked for.
TEST(LiveProcess, LeadsToTheFrameworkInItsPluginFiles)
{
    std::string other;
    if (GetPathToRunningProcessExe("Vexcor", other) == 0U) {
        GTEST_SKIP() << "another one runs in " << other;
    }
    const ScratchFolder scratch;
    const std::string folder = std::filesystem::canonical(scratch.Path());
    ASSERT_EQ(setenv("XDG_DATA_HOME", folder.c_str(), 1), 0);
    std::filesystem::create_directory(folder + "/PluginFiles");
    std::filesystem::create_directory_symlink(
        std::string(SCRIPTED_PLUGIN_CORE_FOLDER) + "/complete/PluginCore.framework",
        folder + "/PluginFiles/PluginCore.framework");

    const SleepingProcess process(folder + "/Vexcor");
    const std::unique_ptr<PCILoader> loader(PCILoader::GetSharedInstance());
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->frameworkPath, folder + "/PluginFiles/PluginCore.framework");
    EXPECT_EQ(loader->missingFunctionCount, 0);
}

}  // namespace
