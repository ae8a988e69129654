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

// Runs the loader with the scripted libraries. The working folder and the user's folders are an
// empty scratch folder and the process list is empty, so the search finds nothing by itself.
class PCILoaderTest : public ::testing::Test {
protected:
    PCILoaderTest()
    {
        EXPECT_EQ(0, setenv("HOME", scratch.c_str(), 1));
        EXPECT_EQ(0, setenv("XDG_DATA_HOME", scratch.c_str(), 1));
        EXPECT_EQ(0, chdir(scratch.c_str()));
        PCILoader::sSharedInstance = nullptr;
        ScriptedExecutables().clear();
        ClearTraces();
    }
    ~PCILoaderTest() override
    {
        // The plug-in never deletes the instance; a test has to.
        const std::unique_ptr<PCILoader> instance(PCILoader::sSharedInstance);
        EXPECT_EQ(0, chdir("/"));
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
    // Writes a file in the scratch folder, creates the folders above it, and returns its path.
    std::string Write(const std::string& name, const std::string& content) const
    {
        const std::filesystem::path file = scratch + "/" + name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    // Loads the variant and returns what IsLoaded says. Alerts go to `host`.
    bool IsLoaded(const std::string& variant)
    {
        PCILoader* const loader = Load(variant);
        EXPECT_NE(nullptr, loader) << variant;
        return loader != nullptr && loader->IsLoaded(&path, &version, &missing);
    }

    ScriptedHost host;
    const ScratchFolder scratchFolder;
    const std::string scratch = scratchFolder.Path();
    std::string path;
    std::string version;
    int missing = -1;
};
