#pragma once

#include "HostInterface.h"
#include "PluginGlobals.h"

// The entry, and the dispatch of each host message to its handler.

// The module's only exported function. The host calls it on its main thread for every message. The
// strings and the message belong to the host and are valid during the call.
extern "C" AIErr PluginMain(char* caller, char* selector, void* message);

// The exception barrier that PluginMain calls: catches everything and then returns 0. Returns 1
// without doing anything if the plug-in is still handling another message.
AIErr Main(char* caller, char* selector, void* message);

// Dispatches, by caller and selector, every message whose caller isn't "SP Interface".
AIErr HandlePluginCaller(char* caller, char* selector, void* message);

// Dispatches by the notifier's handle and returns the handler's result, or 0 for an unknown
// notifier. Returns kHostBadParameter if `message` or gGlobals is null.
AIErr GoNotifier(AINotifierMessage* message);

// The application has finished starting, and there is nothing to do. Returns 0, or
// kHostBadParameter for a null message.
AIErr HandleStartupNotifier(AINotifierMessage* message);

// The application is about to quit: shuts the plug-in down. Returns 0 whatever the shutdown
// returned, or kHostBadParameter for a null message.
AIErr HandleShutdownNotifier(AINotifierMessage* message);
