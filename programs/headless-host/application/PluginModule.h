#pragma once

#include <memory>
#include <string>

#include "application/MessagePump.h"

namespace headless {

// A plug-in module in the process.
class PluginModule {
public:
    // Loads the module at `path`, which is the module itself or a folder X.aip with the module X in
    // it, with all symbols bound at once. Null, and one line in `error` that names the path and the
    // reason, if that fails or the module has no PluginMain.
    static std::unique_ptr<PluginModule> Load(const std::string& path, std::string& error);

    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    PluginMainFunction GetMain() const { return mMain; }
    const std::string& GetPath() const { return mPath; }

    // The module stays in the process when this object goes.
    void LeaveLoaded() { mHandle = nullptr; }

private:
    PluginModule() = default;

    void* mHandle = nullptr;
    PluginMainFunction mMain = nullptr;
    std::string mPath;
};

}  // namespace headless
