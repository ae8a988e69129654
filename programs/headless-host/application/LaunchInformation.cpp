#include "application/LaunchInformation.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

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
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (descriptor < 0) return {};
    const std::string line = kKey + manager + "/Vexcor\n";
    const bool isWritten =
        write(descriptor, line.data(), line.size()) == static_cast<ssize_t>(line.size());
    const bool isClosed = close(descriptor) == 0;
    if (isWritten && isClosed) return file.string();
    (void)unlink(file.c_str());  // half a path would lead elsewhere
    return {};
}

}  // namespace headless
