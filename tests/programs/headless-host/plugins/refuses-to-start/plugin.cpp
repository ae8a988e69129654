#include <dlfcn.h>

#include "../PluginSupport.h"
#include "HostPlatform_Linux.h"

// Behaves like the plug-in without a PluginCore: acquires a suite, shows an alert and leaves the
// globals pointer null.
PLUGIN_MAIN(char*, char* selector, void* message)
{
    using GetPlatform = SHostPlatform* (*)();
    const auto get = reinterpret_cast<GetPlatform>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    plugin::basic = static_cast<SPMessageData*>(message)->basic;
    void* suite = nullptr;
    if (std::string(selector) == "Startup") {
        (void)plugin::basic->AcquireSuite("AI User Suite", 1017, &suite);
        get()->showAlert("Missing PluginCore", "./somewhere");
    }
    return kHostSuccess;
}
