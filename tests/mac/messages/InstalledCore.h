#pragma once

#include <filesystem>
#include <string>

#include "ScratchFolder.h"
#include "Workspace.h"

// A font manager that is listed as running and has a scripted PluginCore of the given variant in
// its installation folder.
class InstalledCore {
public:
    explicit InstalledCore(const std::string& variant)
    {
        std::filesystem::create_directory_symlink(
            std::string(SCRIPTED_PLUGIN_CORE_FOLDER) + "/" + variant, mFolder.Path("PluginFiles"));
        SetRunningApplications({mFolder.Path("Other"), mFolder.Path("Vexcor")});
    }

    std::string FrameworkPath() const { return mFolder.Path("PluginFiles/PluginCore.framework"); }
    std::string Executable() const { return mFolder.Path("Vexcor"); }

private:
    ScratchFolder mFolder;
};
