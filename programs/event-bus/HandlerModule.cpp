#include "HandlerModule.h"

#include <dlfcn.h>

namespace plugplug {

HandlerModule OSFindHandlerModule(PlugPlugEventHandler handler)
{
    HandlerModule module;
    Dl_info information;
    if (dladdr(reinterpret_cast<const void*>(handler), &information) != 0) {
        module.base = information.dli_fbase;
        if (information.dli_fname != nullptr) module.path = information.dli_fname;
    }
    return module;
}

bool OSIsHandlerModuleLoaded(const HandlerModule& module, PlugPlugEventHandler handler)
{
    if (module.base == nullptr) return true;
    const HandlerModule now = OSFindHandlerModule(handler);
    return now.base == module.base && now.path == module.path;
}

}  // namespace plugplug
