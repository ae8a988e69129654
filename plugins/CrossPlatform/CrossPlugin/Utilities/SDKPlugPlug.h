#pragma once

#include <cstdint>

#include "BundleRef.h"

// The host's event bus, PlugPlug: a framework whose functions are looked up by name at run time.

namespace csxs {
namespace event {

enum EventScope : int32_t {
    kEventScopeGlobal = 0,
    kEventScopeApplication = 1,
};

// An event. The texts are zero-terminated UTF-8, belong to the sender and are only read during the
// dispatch.
struct Event {
    const char* type;
    EventScope scope;
    const char* appId;
    const char* extensionId;
    const char* data;
};

}  // namespace event
}  // namespace csxs

// Called for each event of a type. `context` is what was passed to AddEventListener; the event is
// valid during the call only. [main-thread]
typedef void (*PlugPlugEventHandler)(const csxs::event::Event* event, void* context);

// The functions of the event bus. PluginCore receives the address of this object, so the data
// members and their order are fixed. All are null until Load. [main-thread]
struct SDKPlugPlug {
    BundleRef bundle = nullptr;
    void* PlugPlugLoadExtension = nullptr;
    void* PlugPlugUnloadExtension = nullptr;
    int (*PlugPlugAddEventListener)(const char* type, PlugPlugEventHandler handler,
                                    void* context) = nullptr;
    void* PlugPlugRemoveEventListener = nullptr;
    int (*PlugPlugDispatchEvent)(const csxs::event::Event* event) = nullptr;

    // Opens "PlugPlugOwl.framework" in the host's private frameworks folder or, if that doesn't
    // exist, "PlugPlug.framework", and looks up the functions in the order of the members.
    // Returns 0. Stops at the first failure and returns 31; the members before it remain set. What
    // is set is valid until the process ends: the bundle is never released.
    int Load();

    // Calls `handler` with `context` for each later event of the type, until the process ends.
    // Returns the bus's status, or 1 if Load has not found the function.
    int AddEventListener(const char* type, PlugPlugEventHandler handler, void* context);

    // Sends the event to its listeners. Returns the bus's status, or 1 if Load has not found
    // PlugPlugRemoveEventListener. Must not be called if only PlugPlugDispatchEvent was missing.
    int DispatchEvent(const csxs::event::Event* event);
};

// The platform's part of Load: opens the bundle. Chooses PlugPlugOwl.framework if that exists, even
// if it can't be opened. Returns null if the host has no private frameworks folder or the chosen
// bundle can't be opened. [main-thread]
BundleRef OSOpenEventBus();
