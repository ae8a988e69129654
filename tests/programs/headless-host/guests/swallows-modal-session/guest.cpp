#include <dlfcn.h>

#include "../GuestSupport.h"
#include "HostPlatform_Linux.h"

namespace {

ModalSession BeginNothing(ModalWindow*) { return nullptr; }

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    using GetPlatform = SHostPlatform* (*)();
    const auto get = reinterpret_cast<GetPlatform>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    if (get != nullptr && std::string(selector) == "Startup")
        get()->beginModalSession = BeginNothing;
    return guest::Serve(caller, selector, message, nullptr, nullptr);
}
