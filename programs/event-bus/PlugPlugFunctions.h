#ifndef PLUG_PLUG_FUNCTIONS_H
#define PLUG_PLUG_FUNCTIONS_H

/*
 * The functions of PlugPlug, the host's event bus, over which the panel and the plug-ins reach each
 * other. They are found by name at run time in PlugPlugOwl.framework or PlugPlug.framework of the
 * host's private frameworks folder; a framework exports all five with C linkage, and nothing else.
 *
 * Common to all:
 *  - There is one bus in a process, whichever of the frameworks is open and however often.
 *  - The result is one of the codes below, 0 for success. Nothing is thrown out of a function.
 *  - Texts are zero-terminated UTF-8. Texts and events belong to the caller and need last only as
 *    long as the call.
 *  - Calls come on the host's main thread, and listeners are called there.
 *
 * The event itself is defined in PlugPlugEvent.h, and by whoever has a definition of their own with
 * that layout; this header goes along with both.
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

    /* The type, the handler, the event, the type of the event or the name of the extension is
       null. */
    kPlugPlugNullArgument = 1,

    /* There is no such listener, or no such extension. */
    kPlugPlugNotFound = 2,

    /* The event was dispatched from inside so many dispatches that it must be an endless chain. */
    kPlugPlugNestedTooDeep = 3,

    /* A listener threw an exception, which was dropped. The other listeners were called. */
    kPlugPlugListenerFailed = 4,

    /* There is no memory. */
    kPlugPlugFailure = 5
};

/* How many dispatches may be under way, each but the first from a listener of the one before. */
enum { kPlugPlugDeepestNesting = 32 };

/* `context` is what came with the listener. The event is gone when the listener returns. */
typedef void (*PlugPlugEventHandler)(const PlugPlugEvent* event, void* context);

/* An extension is a panel by its name. This bus has none: whoever plays the panel is the host.
   kPlugPlugNotFound for every name. */
typedef int (*PlugPlugLoadExtensionFunction)(const char* extensionId);
typedef int (*PlugPlugUnloadExtensionFunction)(const char* extensionId);

/*
 * From now on `handler` is called with each event whose type equals `type` byte for byte, in the
 * order in which listeners were added. A listener is its type, handler and context: adding one
 * again changes nothing and succeeds. One that is added inside a dispatch misses the events under
 * way.
 *
 * A listener stays until it is removed, or until the module that its handler is in was unloaded.
 */
typedef int (*PlugPlugAddEventListenerFunction)(const char* type, PlugPlugEventHandler handler,
                                                void* context);

/* The listener isn't called any more, by no event under way either. kPlugPlugNotFound if it was
   never added. */
typedef int (*PlugPlugRemoveEventListenerFunction)(const char* type, PlugPlugEventHandler handler,
                                                   void* context);

/*
 * Calls the event's listeners and returns when all have returned; success if there is none. A
 * listener may dispatch events, add and remove listeners, itself included. The event's scope, names
 * and data aren't looked at.
 */
typedef int (*PlugPlugDispatchEventFunction)(const PlugPlugEvent* event);

#ifdef __cplusplus
}
#endif

#endif
