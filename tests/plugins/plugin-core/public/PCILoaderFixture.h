#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "PCILoader.h"
#include "RecordingTrace.h"
#include "ScratchFolder.h"
#include "ScriptedHost.h"
#include "ScriptedPluginCore.h"
#include "ScriptedProcessList.h"

// The loader over the scripted libraries. The working folder is the test's own, so that no
// framework lies about in it, no process runs, and nothing is configured for the user.
class PCILoaderTest : public ::testing::Test {
protected:
    PCILoaderTest()
    {
        EXPECT_EQ(setenv("HOME", scratch.c_str(), 1), 0);
        EXPECT_EQ(setenv("XDG_DATA_HOME", scratch.c_str(), 1), 0);
        EXPECT_EQ(chdir(scratch.c_str()), 0);
        PCILoader::sSharedInstance = nullptr;
        ScriptedExecutables().clear();
        ClearTraces();
    }
    ~PCILoaderTest() override
    {
        // The system keeps the instance for good; a test doesn't.
        const std::unique_ptr<PCILoader> instance(PCILoader::sSharedInstance);
        EXPECT_EQ(chdir("/"), 0);
    }

    static std::string Folder(const std::string& variant)
    {
        return std::string(SCRIPTED_PLUGIN_CORE_FOLDER) + "/" + variant;
    }
    static std::string Framework(const std::string& variant)
    {
        return Folder(variant) + "/PluginCore.framework";
    }
    static PCILoader* Load(const std::string& variant)
    {
        return PCILoader::GetThisSharedInstance(Framework(variant));
    }
    // Writes a file below the scratch folder, with the folders above it.
    std::string Write(const std::string& name, const std::string& content) const
    {
        const std::filesystem::path file = scratch + "/" + name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    // Loads the variant and tests it; the alerts are the host's.
    bool IsLoaded(const std::string& variant)
    {
        PCILoader* const loader = Load(variant);
        EXPECT_NE(loader, nullptr) << variant;
        return loader != nullptr && loader->IsLoaded(&path, &version, &missing);
    }

    ScriptedHost host;
    const ScratchFolder folder;
    const std::string scratch = folder.Path();
    std::string path;
    std::string version;
    int missing = -1;
};
