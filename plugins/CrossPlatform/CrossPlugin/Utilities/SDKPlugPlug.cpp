#include "SDKPlugPlug.h"

int SDKPlugPlug::AddEventListener(const char* type, PlugPlugEventHandler handler, void* context)
{
    return PlugPlugAddEventListener != nullptr ? PlugPlugAddEventListener(type, handler, context)
                                               : 1;
}

// Another member is tested than the one that is called: Load binds both or fails.
int SDKPlugPlug::DispatchEvent(const csxs::event::Event* event)
{
    return PlugPlugRemoveEventListener != nullptr ? PlugPlugDispatchEvent(event) : 1;
}
