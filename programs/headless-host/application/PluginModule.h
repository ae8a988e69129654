#pragma once

#include <memory>
#include <string>

#include "application/MessagePump.h"

namespace headless {

// A plug-in module that is loaded into this process. Main thread only.
class PluginModule {
public:
    // Loads a module and binds all its symbols at once.
    //
    // path   the module, or a folder X.aip with the module X in it
    // Returns null, with one line in `error` that names the path and the reason, if it cannot be
    // loaded or has no PluginMain.
    static std::unique_ptr<PluginModule> Load(const std::string& path, std::string& error);

    // Unloads the module: nothing of it may be in use.
    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    PluginMainFunction GetMain() const { return mMain; }
    const std::string& GetPath() const { return mPath; }

    // Keeps the module in the process when this object is destroyed.
    void LeaveLoaded() { mHandle = nullptr; }

private:
    PluginModule() = default;

    void* mHandle = nullptr;
    PluginMainFunction mMain = nullptr;
    std::string mPath;
};

}  // namespace headless
