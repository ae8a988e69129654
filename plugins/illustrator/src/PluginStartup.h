#pragma once

#include <string>

#include "HostInterface.h"

// The globals record: one block of the host's, whose address the host hands back with every
// message. Not constructed and not destroyed, so it holds plain words alone.
struct SGlobals {
    int64_t globalsVersion;      // 2023, read by nobody
    std::string* globalsString;  // owned by the record, from startup to shutdown
    void* reserved[3];
    SPPluginRef pluginRef;
    AINotifierHandle documentChangedNotifier;
    AINotifierHandle documentOpenedNotifier;
    AINotifierHandle documentAboutToCloseNotifier;
    AINotifierHandle documentClosedNotifier;
    AINotifierHandle documentNewNotifier;
    AINotifierHandle startupNotifier;
    AINotifierHandle shutdownNotifier;
    AINotifierHandle menuChangedNotifier;
    AINotifierHandle afterSaveNotifier;
    AINotifierHandle afterSaveAsNotifier;
    AINotifierHandle diskWritingCompleteNotifier;
    AINotifierHandle fontListChangedNotifier;
    AITimerHandle timerHandle;
    AIFileFormatHandle fileFormatHandle;
};

// Starts PluginCore and takes the plug-in's place in the host. 0, also if PluginCore refused to
// start; else the host's code. kHostBadParameter for a null message.
AIErr StartupPlugin(SPInterfaceMessage* message);

// Undoes it; the second of two calls finds nothing to do and gives 0. The result is PluginCore's
// status or the host's code; kHostBadParameter for a null message. The message's globals word is
// cleared.
AIErr ShutdownPlugin(SPInterfaceMessage* message);

// Has PluginCore show its about dialog and gives its status; 0 if there is no PluginCore.
AIErr AboutPlugin(SPInterfaceMessage* message);

// Subscribes to the twelve notifiers; at the host's first refusal its code is the result, and those
// added so far stay. kHostBadParameter for a null message.
AIErr AddNotifiers(SPInterfaceMessage* message);
