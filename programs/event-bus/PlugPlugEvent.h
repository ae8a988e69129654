#ifndef PLUG_PLUG_EVENT_H
#define PLUG_PLUG_EVENT_H

/*
 * An event on the bus, for code that has no definition of its own: the plug-in has one, on its side
 * of the boundary. The layout is a binary contract. The scope has 32 bits and is followed by four
 * bytes of padding.
 */

#include <stddef.h>
#include <stdint.h>

#include "PlugPlugFunctions.h"

#ifdef __cplusplus

namespace csxs {
namespace event {

enum EventScope : int32_t { kEventScopeGlobal = 0, kEventScopeApplication = 1 };

struct Event {
    const char* type;         // selects the listeners; never null
    EventScope scope;         // passed on unchanged
    const char* appId;        // may be null
    const char* extensionId;  // may be null
    const char* data;         // the content; sender and listeners agree on its format; may be null
};

}  // namespace event
}  // namespace csxs

#define PLUG_PLUG_STATIC_ASSERT(condition, text) static_assert(condition, text)
#else
struct PlugPlugEvent {
    const char* type;
    int32_t scope;
    const char* appId;
    const char* extensionId;
    const char* data;
};
#define PLUG_PLUG_STATIC_ASSERT(condition, text) _Static_assert(condition, text)
#endif

PLUG_PLUG_STATIC_ASSERT(offsetof(PlugPlugEvent, type) == 0, "the type comes first");
PLUG_PLUG_STATIC_ASSERT(offsetof(PlugPlugEvent, scope) == sizeof(void*), "the scope");
PLUG_PLUG_STATIC_ASSERT(sizeof(((PlugPlugEvent*)0)->scope) == 4, "the scope has 32 bits");
PLUG_PLUG_STATIC_ASSERT(offsetof(PlugPlugEvent, appId) == 2 * sizeof(void*), "the application");
PLUG_PLUG_STATIC_ASSERT(offsetof(PlugPlugEvent, extensionId) == 3 * sizeof(void*), "the extension");
PLUG_PLUG_STATIC_ASSERT(offsetof(PlugPlugEvent, data) == 4 * sizeof(void*), "the data");
PLUG_PLUG_STATIC_ASSERT(sizeof(PlugPlugEvent) == 5 * sizeof(void*), "nothing follows the data");

#undef PLUG_PLUG_STATIC_ASSERT

#endif
