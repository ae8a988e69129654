#include <dlfcn.h>

#include "../GuestSupport.h"
#include "HostPlatform_Linux.h"

// Like the plug-in without a PluginCore: suites come with the first message, then an alert, and no
// globals.
GUEST_MAIN(char*, char* selector, void* message)
{
    using GetPlatform = SHostPlatform* (*)();
    const auto get = reinterpret_cast<GetPlatform>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    guest::basic = static_cast<SPMessageData*>(message)->basic;
    void* suite = nullptr;
    if (std::string(selector) == "Startup") {
        (void)guest::basic->AcquireSuite("AI User Suite", 1017, &suite);
        get()->showAlert("Missing PluginCore", "./somewhere");
    }
    return kHostSuccess;
}
