#include "Fault.h"
#include "PluginGlobals.h"

// How the plug-in starts and ends PluginCore.
namespace wrong {

namespace {

unsigned int PassNoCallback(RebuildWorkgroupsMenuFunction) { return 0; }

AIErr RunWithoutFunction(Message& message)
{
    PCILoader* const loader = PCILoader::GetSharedInstance();
    if (loader != nullptr && loader->missingFunctionCount == 1 &&
        core::ShouldShowLogin == nullptr) {
        loader->missingFunctionCount = 0;
    }
    return message.Send();
}

AIErr BeSilentWithoutCore(Message& message)
{
    const bool isStart = message.Is("SP Interface", "Startup");
    return isStart && PCILoader::GetSharedInstance() == nullptr ? AIErr{kHostSuccess}
                                                                : message.Send();
}

unsigned int TakeEveryVersion(int* outVersion, int requiredVersion)
{
    (void)core::GetAPIVersion(outVersion, requiredVersion);
    return 0;
}

unsigned int IgnoreFailedStart(const char* bundleIdentifier, const char* hostVersion)
{
    (void)core::InitializePluginCoreInterface(bundleIdentifier, hostVersion);
    return 0;
}

unsigned int EndTwice()
{
    (void)core::TerminatePluginCoreInterface();
    return core::TerminatePluginCoreInterface();
}

struct NotEnded {};

unsigned int GoOnUnlessEnded()
{
    if (core::TerminatePluginCoreInterface() != 0) throw NotEnded();
    return 0;
}

// The module stays in the process for its second life.
unsigned int StartOnce(const char* bundleIdentifier, const char* hostVersion)
{
    static bool sIsStarted = false;
    if (sIsStarted) return 0;
    const unsigned int status = core::InitializePluginCoreInterface(bundleIdentifier, hostVersion);
    sIsStarted = status == 0;
    return status;
}

}  // namespace

const Fault kStartFaults[] = {
    {1101, nullptr, WRONG_CORE(SetRebuildWorkgroupsMenuCallback, PassNoCallback)},
    {1102, RunWithoutFunction, nullptr},
    {1103, BeSilentWithoutCore, nullptr},
    {1104, nullptr, WRONG_CORE(GetAPIVersion, TakeEveryVersion)},
    {1105, nullptr, WRONG_CORE(InitializePluginCoreInterface, IgnoreFailedStart)},
    {1405, nullptr, WRONG_CORE(TerminatePluginCoreInterface, EndTwice)},
    {1406, nullptr, WRONG_CORE(TerminatePluginCoreInterface, GoOnUnlessEnded)},
    {1409, nullptr, WRONG_CORE(InitializePluginCoreInterface, StartOnce)},
    {0, nullptr, nullptr}};

}  // namespace wrong
