#pragma once

#include <cstdint>

#include "DllFrameworkUtils.h"

// The host's event bus, PlugPlug, bound by name at run time.

namespace csxs {
namespace event {

enum EventScope : int32_t {
    kEventScopeGlobal = 0,
    kEventScopeApplication = 1,
};

// All texts belong to the sender and are read during the dispatch.
struct Event {
    const char* type;
    EventScope scope;
    const char* appId;
    const char* extensionId;
    const char* data;
};

}  // namespace event
}  // namespace csxs

typedef void (*PlugPlugEventHandler)(const csxs::event::Event* event, void* context);

// The binding. PluginCore is given its address, so the members and their order are fixed: all null
// until Load, then valid for the life of the process. The bundle is never released. Main thread.
struct SDKPlugPlug {
    BundleRef bundle = nullptr;
    void* PlugPlugLoadExtension = nullptr;
    void* PlugPlugUnloadExtension = nullptr;
    int (*PlugPlugAddEventListener)(const char* type, PlugPlugEventHandler handler,
                                    void* context) = nullptr;
    void* PlugPlugRemoveEventListener = nullptr;
    int (*PlugPlugDispatchEvent)(const csxs::event::Event* event) = nullptr;

    // Opens "PlugPlugOwl.framework" in the host's private frameworks folder or, if it isn't there,
    // "PlugPlug.framework", and binds the functions in the members' order. 0, or 31 at the first
    // failure, which leaves the members in front of it bound.
    int Load();

    // 1 if nothing is bound, else what the bus answers.
    int AddEventListener(const char* type, PlugPlugEventHandler handler, void* context);
    int DispatchEvent(const csxs::event::Event* event);
};

// Opens the bundle that Load binds: by whether the preferred folder is there, not by whether it can
// be opened. Null if the host has no such folder, or it is no framework. No trace.
BundleRef OSOpenEventBus();
