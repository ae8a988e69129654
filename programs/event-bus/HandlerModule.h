#pragma once

#include <string>

#include "PlugPlugFunctions.h"

namespace plugplug {

// The module that contains a handler's code. A plug-in may be unloaded without removing its
// listeners; calling one of them afterwards would run arbitrary code at that address.
struct HandlerModule {
    const void* base = nullptr;  // null if the code is in no module
    std::string path;
};

// Returns the module that contains the handler now. May throw std::bad_alloc.
HandlerModule OSFindHandlerModule(PlugPlugEventHandler handler);

// Returns whether `module` still contains the handler. True if the code was in no module.
bool OSIsHandlerModuleLoaded(const HandlerModule& module, PlugPlugEventHandler handler);

}  // namespace plugplug
