#include <dlfcn.h>

#include "../PluginSupport.h"
#include "HostPlatform_Linux.h"

namespace {

ModalSession BeginNothing(ModalWindow*) { return nullptr; }

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    using GetPlatform = SHostPlatform* (*)();
    const auto get = reinterpret_cast<GetPlatform>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    if (get != nullptr && std::string(selector) == "Startup")
        get()->beginModalSession = BeginNothing;
    return plugin::Serve(caller, selector, message, nullptr, nullptr);
}
