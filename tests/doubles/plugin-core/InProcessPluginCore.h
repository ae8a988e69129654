#pragma once

#include "PCILoader.h"
#include "ScriptedPluginCore.h"

// Makes the scripted PluginCore of this program the shared instance of PCILoader, as if it had been
// found and loaded, until the destructor. The constructor resets the state. [main-thread]
class InProcessPluginCore {
public:
    InProcessPluginCore()
    {
        InProcessPluginCoreState() = ScriptedPluginCore();
#define FILL(Name) \
    mLoader.pf##Name = reinterpret_cast<Name##Function>(InProcessPluginCoreFunction(#Name));
        PLUGIN_CORE_FUNCTIONS(FILL)
#undef FILL
        mLoader.frameworkPath = "/in/process/PluginCore.framework";
        mLoader.frameworkVersion = "1.2.3";
        mLoader.missingFunctionCount = 0;
        PCILoader::sSharedInstance = &mLoader;
    }
    ~InProcessPluginCore() { PCILoader::sSharedInstance = nullptr; }
    InProcessPluginCore(const InProcessPluginCore&) = delete;
    InProcessPluginCore& operator=(const InProcessPluginCore&) = delete;

    ScriptedPluginCore& State() { return InProcessPluginCoreState(); }
    ScriptedPluginCore* operator->() { return &InProcessPluginCoreState(); }
    PCILoader& Loader() { return mLoader; }

private:
    PCILoader mLoader;
};
