#pragma once

#include <string>

#include "PlugPlugFunctions.h"

namespace plugplug {

// The module that a handler's code is in. A plug-in may be unloaded without removing its listeners;
// calling one of them then would run whatever lies at that address.
struct HandlerModule {
    const void* base = nullptr;  // null for code that is in no module
    std::string path;
};

// The module as it is now. May throw std::bad_alloc.
HandlerModule OSFindHandlerModule(PlugPlugEventHandler handler);

// Whether the handler's module is still the one that was found. True for code that was in none.
bool OSIsHandlerModuleLoaded(const HandlerModule& module, PlugPlugEventHandler handler);

}  // namespace plugplug
