#include "application/LaunchInformation.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "base/FileDescriptor.h"
#include "base/ReadWrite.h"
#include "system/Environment.h"
#include "system/Paths.h"

namespace headless {

namespace {

namespace fs = std::filesystem;

// The plug-in reads the part of a line after '=' as the path of the font manager's program, and
// looks for PluginFiles/PluginCore.framework in the same folder.
constexpr char kKey[] = "vexcor.path=";

}  // namespace

std::string ProvideLaunchInformation()
{
    const std::string data = GetDataFolder();
    const std::string manager = MakeAbsolute(GetProgramFolder(), "../Vexcor");
    if (data.empty() || !IsFolder(manager + "/PluginFiles/PluginCore.framework")) return {};
    const fs::path file = fs::path(data) / "Corvanta/com.corvanta.Vexcor-LaunchInfo.conf";
    std::error_code ignored;  // open fails without the folder
    (void)fs::create_directories(file.parent_path(), ignored);
    // O_EXCL: fails for any existing entry, a dangling symbolic link included.
    base::FileDescriptor descriptor(
        open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (!descriptor.IsValid()) return {};
    const std::error_code written = base::WriteAll(descriptor.Get(), kKey + manager + "/Vexcor\n");
    const std::error_code closed = descriptor.Close();
    if (!written && !closed) return file.string();
    (void)unlink(file.c_str());  // half a path would lead elsewhere
    return {};
}

}  // namespace headless
