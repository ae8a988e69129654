#include "EventBus.h"
#include "PlugPlugFunctions.h"

// The five functions as both frameworks export them.
#define PLUG_PLUG_EXPORT extern "C" __attribute__((visibility("default")))

PLUG_PLUG_EXPORT int PlugPlugLoadExtension(const char* extensionId)
{
    return extensionId == nullptr ? kPlugPlugNullArgument : kPlugPlugNotFound;
}

PLUG_PLUG_EXPORT int PlugPlugUnloadExtension(const char* extensionId)
{
    return extensionId == nullptr ? kPlugPlugNullArgument : kPlugPlugNotFound;
}

PLUG_PLUG_EXPORT int PlugPlugAddEventListener(const char* type, PlugPlugEventHandler handler,
                                              void* context)
{
    return PlugPlugEventBus_Add(type, handler, context);
}

PLUG_PLUG_EXPORT int PlugPlugRemoveEventListener(const char* type, PlugPlugEventHandler handler,
                                                 void* context)
{
    return PlugPlugEventBus_Remove(type, handler, context);
}

PLUG_PLUG_EXPORT int PlugPlugDispatchEvent(const PlugPlugEvent* event)
{
    return PlugPlugEventBus_Dispatch(event);
}
