#ifndef PLUG_PLUG_FUNCTIONS_H
#define PLUG_PLUG_FUNCTIONS_H

/*
 * The functions of PlugPlug, the host's event bus, over which the panel and the plug-ins exchange
 * events. Callers look them up by name in PlugPlugOwl.framework or PlugPlug.framework in the host's
 * private frameworks folder. A framework exports these five functions with C linkage and no others.
 *
 * Common to all:
 *  - A process has one bus, no matter which of the frameworks are open and how often.
 *  - Returns one of the codes below, 0 for success. Never throws.
 *  - Strings are zero-terminated UTF-8. Strings and events belong to the caller and must be valid
 *    until the function returns.
 *  - [main-thread] of the host; listeners are called there as well.
 *
 * This header only declares the event. PlugPlugEvent.h defines it; code may define it itself with
 * the same layout.
 */

#ifdef __cplusplus
namespace csxs {
namespace event {
struct Event;
}
}  // namespace csxs
typedef csxs::event::Event PlugPlugEvent;
extern "C" {
#else
typedef struct PlugPlugEvent PlugPlugEvent;
#endif

enum {
    kPlugPlugSuccess = 0,

    /* A required argument is null: type, handler, event, the event's type or the extension's
       name. */
    kPlugPlugNullArgument = 1,

    /* No such listener or extension. */
    kPlugPlugNotFound = 2,

    /* The event wasn't dispatched: kPlugPlugDeepestNesting dispatches are under way, so listeners
       probably cause each other's events without end. */
    kPlugPlugNestedTooDeep = 3,

    /* A listener threw an exception, which was discarded. The other listeners were called. */
    kPlugPlugListenerFailed = 4,

    /* Out of memory. */
    kPlugPlugFailure = 5
};

/* The greatest number of dispatches under way at a time, each started by a listener of the one
   before. */
enum { kPlugPlugDeepestNesting = 32 };

/* `context` is the one passed with the handler. The event is valid until the handler returns. */
typedef void (*PlugPlugEventHandler)(const PlugPlugEvent* event, void* context);

/* Loads or unloads an extension (a panel) by name. This bus has no extensions, because the host
   itself plays the panel: returns kPlugPlugNotFound for every name. */
typedef int (*PlugPlugLoadExtensionFunction)(const char* extensionId);
typedef int (*PlugPlugUnloadExtensionFunction)(const char* extensionId);

/*
 * Registers `handler` for the events whose type equals `type` byte for byte. Listeners are called
 * in the order in which they were added. Type, handler and context identify a listener: adding one
 * again changes nothing and succeeds. A listener that is added during a dispatch doesn't receive
 * the events under way.
 *
 * A listener remains until it is removed or the module that contains its handler is unloaded.
 */
typedef int (*PlugPlugAddEventListenerFunction)(const char* type, PlugPlugEventHandler handler,
                                                void* context);

/* Removes a listener; it doesn't receive the events under way either. Returns kPlugPlugNotFound if
   there is no such listener. */
typedef int (*PlugPlugRemoveEventListenerFunction)(const char* type, PlugPlugEventHandler handler,
                                                   void* context);

/*
 * Calls the listeners of the event's type and returns when all have returned; succeeds if there are
 * none. A listener may dispatch events and add and remove listeners, including itself. The other
 * members of the event are passed on unchecked.
 */
typedef int (*PlugPlugDispatchEventFunction)(const PlugPlugEvent* event);

#ifdef __cplusplus
}
#endif

#endif
