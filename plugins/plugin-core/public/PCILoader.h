#pragma once

#include <cstdint>
#include <string>

#include "DllFrameworkUtils.h"
#include "PluginCoreFunctions.h"

// Finds PluginCore, loads it and holds the table of its functions (see PluginCoreFunctions.h).
// There is one instance per process: the first successful load creates it, and the plug-in never
// deletes it or unloads PluginCore. [main-thread]
//
// The members are in the order of look-up. A member is null if the library lacks the function;
// after IsLoaded has returned true, no member is null.
class PCILoader {
public:
#define DECLARE_MEMBER(name) name##Function pf##name;
    PLUGIN_CORE_FUNCTIONS(DECLARE_MEMBER)
#undef DECLARE_MEMBER

    std::string frameworkPath;     // the argument of GetThisSharedInstance
    std::string frameworkVersion;  // empty if the framework has no version text
    int32_t missingFunctionCount;  // how many names the last look-up didn't find

    // The instance, or null. Destroying a loader resets it.
    static PCILoader* sSharedInstance;

    // Creates an empty table that isn't the shared instance.
    PCILoader();
    PCILoader(const PCILoader&) = delete;
    PCILoader& operator=(const PCILoader&) = delete;
    virtual ~PCILoader();

    // Returns the instance. If there is none, searches for PluginCore and loads it; returns null if
    // that fails, and the next call searches again.
    static PCILoader* GetSharedInstance();

    // Loads the framework folder at `path` (UTF-8). Ignores `path` if an instance exists already.
    // Returns the instance, or null if the framework can't be loaded.
    static PCILoader* GetThisSharedInstance(const std::string& path);

    // Returns whether this PluginCore is usable: it supports kPluginCoreAPIVersion and lacks no
    // function. If it isn't, shows an alert. Sets all three outputs in both cases. Returns false,
    // without an alert, if one of the pointers is null.
    bool IsLoaded(std::string* outPath, std::string* outVersion, int* outMissingCount);

    // Looks all functions up in the bundle and sets the table and the count of missing ones. A null
    // bundle empties the table and adds 26 to the count.
    static void ResetFunctionPointers(PCILoader* loader, BundleRef bundle);

    // Returns whether the first 24 members are all set (`nonNull`), or all null. Traces each member
    // that isn't. The last two, which came later, are not checked.
    bool VerifyThatAllMembersAre(bool nonNull);
};
