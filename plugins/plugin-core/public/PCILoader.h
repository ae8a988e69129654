#pragma once

#include <cstdint>
#include <string>

#include "DllFrameworkUtils.h"
#include "PluginCoreFunctions.h"

// Finds PluginCore, opens it and holds the table of its functions. One instance per process, made
// by the first successful load and never deleted by the system. Main thread.
//
// The table's order is the order of look-up. A member is null when its name wasn't found; once
// IsLoaded has answered true, none is.
class PCILoader {
public:
#define DECLARE_MEMBER(name) name##Function pf##name;
    PLUGIN_CORE_FUNCTIONS(DECLARE_MEMBER)
#undef DECLARE_MEMBER

    std::string frameworkPath;     // as it was given to GetThisSharedInstance
    std::string frameworkVersion;  // empty if the framework tells none
    int32_t missingFunctionCount;  // names that weren't found

    static PCILoader* sSharedInstance;

    PCILoader();
    PCILoader(const PCILoader&) = delete;
    PCILoader& operator=(const PCILoader&) = delete;
    virtual ~PCILoader();

    // The instance. Without one, searches for PluginCore and loads it; null if that fails, and the
    // next call searches again.
    static PCILoader* GetSharedInstance();

    // Loads the framework at `path`, unless there is an instance already; null if it can't be had.
    static PCILoader* GetThisSharedInstance(const std::string& path);

    // Whether this PluginCore can be used: it serves the interface version and lacks no function.
    // If not, the user is shown an alert. Fills all three outputs; false if one of them is null.
    bool IsLoaded(std::string* outPath, std::string* outVersion, int* outMissingCount);

    // Fills the loader's table. With a null bundle the table is emptied, and the names are added to
    // the count of missing ones.
    static void ResetFunctionPointers(PCILoader* loader, BundleRef bundle);

    // Whether the first 24 members are all set, or all null. Each that isn't is traced.
    bool VerifyThatAllMembersAre(bool nonNull);
};
