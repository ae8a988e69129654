#include "PCILoader.h"

#include <memory>

#include "CoreErrorCodes.h"
#include "DebugUtils.h"
#include "FileProbes.h"
#include "GetPathToRunningProcess.h"
#include "SimpleAlert.h"
#include "TraceArguments.h"

namespace {

constexpr char kFrameworkName[] = "PluginCore.framework";

// Earlier tables had 24 functions. The check of the members still covers only those, and a
// framework that lacks exactly 24 is reported as empty.
constexpr int kFormerFunctionCount = 24;

// Returns the framework's path, beside the executable of the font manager: that of the running
// process, or else that in the launch information. Returns the bare name if both are unknown.
std::string LocateFramework()
{
    std::string directory;
    if (GetPathToRunningProcessExe("Vexcor", directory) != CoreErrorCodes::kSuccess &&
        GetConfiguredPath("Corvanta", "com.corvanta.Vexcor-LaunchInfo.conf", "vexcor.path",
                          directory) == CoreErrorCodes::kSuccess) {
        const size_t separator = directory.find_last_of("/\\");
        if (separator != std::string::npos) directory.erase(separator + 1);
    }
    // A framework is a folder, so this test fails and the path leads to PluginFiles, unless a
    // regular file has the framework's name.
    if (!directory.empty() && !CorvantaFileUtils::FileExists(directory + kFrameworkName)) {
        const char separator = directory.back();
        directory += "PluginFiles";
        directory += separator;
    }
    return directory + kFrameworkName;
}

}  // namespace

PCILoader* PCILoader::sSharedInstance = nullptr;

PCILoader::PCILoader() : missingFunctionCount(kFormerFunctionCount)
{
    ResetFunctionPointers(this, nullptr);
    // Traces what is wrong itself.
    (void)VerifyThatAllMembersAre(false);
}

PCILoader::~PCILoader() { sSharedInstance = nullptr; }

PCILoader* PCILoader::GetSharedInstance()
{
    if (sSharedInstance != nullptr) return sSharedInstance;

    OutputIndentedAndFormattedString(1, "Entering first call to %s()", "GetSharedInstance");
    // The result is in sSharedInstance.
    (void)GetThisSharedInstance(LocateFramework());
    OutputIndentedAndFormattedString(-1, "Exiting first call to %s(); sSharedInstance=0x%08x",
                                     "GetSharedInstance", TracePointer(sSharedInstance));
    return sSharedInstance;
}

PCILoader* PCILoader::GetThisSharedInstance(const std::string& path)
{
    if (sSharedInstance != nullptr) return sSharedInstance;

    char version[1024] = {};
    const BundleRef bundle = LoadDllOrFramework(path.c_str(), version, sizeof version);
    if (bundle == nullptr) {
        OutputIndentedAndFormattedString(0, "ERROR:  cannot find %s", kFrameworkName);
        return nullptr;
    }
    OutputIndentedAndFormattedString(0, "Loaded %s", path.c_str());
    auto loader = std::make_unique<PCILoader>();
    loader->frameworkPath = path;
    loader->frameworkVersion = version;
    ResetFunctionPointers(loader.get(), bundle);
    // Shared only now, so that an exception above doesn't leave a table without functions. Never
    // deleted: PluginCore remains loaded until the process ends.
    sSharedInstance = loader.release();
    return sSharedInstance;
}

void PCILoader::ResetFunctionPointers(PCILoader* loader, BundleRef bundle)
{
    if (bundle != nullptr) loader->missingFunctionCount = 0;
#define FILL_MEMBER(name)                                                               \
    loader->pf##name = reinterpret_cast<name##Function>(GetFunctionPtr(bundle, #name)); \
    if (loader->pf##name == nullptr) ++loader->missingFunctionCount;
    PLUGIN_CORE_FUNCTIONS(FILL_MEMBER)
#undef FILL_MEMBER
}

bool PCILoader::VerifyThatAllMembersAre(bool nonNull)
{
    struct Member {
        const char* name;
        bool isNull;
    };
    const Member members[] = {
#define LIST_MEMBER(name) {"pf" #name, pf##name == nullptr},
        PLUGIN_CORE_FUNCTIONS(LIST_MEMBER)
#undef LIST_MEMBER
    };
    bool result = true;
    for (int index = 0; index < kFormerFunctionCount; ++index) {
        const Member& member = members[index];
        if (member.isNull != nonNull) continue;
        OutputIndentedAndFormattedString(
            0, nonNull ? "ERROR:  this->%s is NULL." : "ERROR:  this->%s is not NULL.",
            member.name);
        result = false;
    }
    return result;
}

bool PCILoader::IsLoaded(std::string* outPath, std::string* outVersion, int* outMissingCount)
{
    if (outPath == nullptr || outVersion == nullptr || outMissingCount == nullptr) {
        OutputIndentedAndFormattedString(
            0, "PCILoader::IsLoaded() returning false because it was called incorrectly.");
        return false;
    }
    *outPath = frameworkPath;
    *outVersion = frameworkVersion;
    *outMissingCount = missingFunctionCount;

    int version = 0;
    const bool isServed =
        pfGetAPIVersion != nullptr && pfGetAPIVersion(&version, kPluginCoreAPIVersion) == 0;
    if (isServed && missingFunctionCount == 0) return true;

    if (isServed && missingFunctionCount == kFormerFunctionCount) {
        OutputIndentedAndFormattedString(
            0, "PCILoader::IsLoaded() returning false because all %d functions are missing.",
            kFormerFunctionCount);
    } else {
        OutputIndentedAndFormattedString(
            0,
            "PCILoader::IsLoaded() returning false. Reason: %d function(s) missing from %s, "
            "version '%s'",
            missingFunctionCount, frameworkPath.c_str(), frameworkVersion.c_str());
    }
    const std::string informative = frameworkPath + " (version " + frameworkVersion + ")";
    // SimpleAlert always returns 0.
    (void)SimpleAlert("Incompatible PluginCore", informative.c_str());
    return false;
}
