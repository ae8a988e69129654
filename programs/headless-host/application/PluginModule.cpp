#include "application/PluginModule.h"

#include <dlfcn.h>

#include <filesystem>

namespace headless {

std::unique_ptr<PluginModule> PluginModule::Load(const std::string& path, std::string& error)
{
    std::filesystem::path file(path);
    if (!file.has_filename()) file = file.parent_path();
    std::error_code ignored;  // dlopen reports a path that cannot be examined
    if (std::filesystem::is_directory(file, ignored)) file /= file.stem();

    std::unique_ptr<PluginModule> module(new PluginModule);
    module->mPath = file.string();
    module->mHandle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module->mHandle == nullptr) {
        const char* const reason = dlerror();
        error =
            std::string("cannot load the plug-in: ") + (reason == nullptr ? file.c_str() : reason);
        return nullptr;
    }
    module->mMain = reinterpret_cast<PluginMainFunction>(dlsym(module->mHandle, "PluginMain"));
    if (module->mMain == nullptr) {
        error = "cannot load the plug-in: " + file.string() + " has no PluginMain";
        return nullptr;
    }
    return module;
}

PluginModule::~PluginModule()
{
    // A module that remains loaded does no harm: the process is about to end.
    if (mHandle != nullptr) (void)dlclose(mHandle);
}

}  // namespace headless
