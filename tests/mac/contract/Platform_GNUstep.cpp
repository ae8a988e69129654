// The parts of Platform.h that use the stand-ins for CoreFoundation and for the workspace.

#include <filesystem>

#include "CoreFoundationStandIn.h"
#include "Platform.h"
#include "ScratchFolder.h"
#include "Workspace.h"

namespace Platform {

void UsePrivateFrameworks(const std::string& folder)
{
    // A bundle is read once, so each call creates another host.
    static std::vector<std::unique_ptr<ScratchFolder>> sHosts;
    sHosts.push_back(std::make_unique<ScratchFolder>());
    const std::string host = sHosts.back()->Path("Host.app");
    std::filesystem::create_directories(host + "/Contents");
    std::filesystem::create_directory_symlink(folder, host + "/Contents/Frameworks");
    CoreFoundationStandIn::SetMainBundle(host);
}

const bool kCountsReferences = true;

long LiveReferences() { return CoreFoundationStandIn::LiveReferences(); }

std::string RunningExecutable()
{
    SetRunningApplications({"", "/opt/Other/Other", "/opt/Vexcor Folder/Vexcor"});
    return "/opt/Vexcor Folder/Vexcor";
}

}  // namespace Platform
