#pragma once

#include <cstdint>
#include <string>

#include "HostInterface.h"

// The state that all parts of the plug-in share, and the exception for a host error. Main thread.

// The globals record. The host allocates the block and passes its address back in every message.
// Its constructor and destructor never run, so every member is trivial.
struct SGlobals {
    int64_t globalsVersion;      // 2023; never read
    std::string* globalsString;  // allocated by StartupPlugin, deleted by ShutdownPlugin
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

// Main copies these three from each message before it dispatches the message.
extern SPBasicSuite* sSPBasic;  // the host's basic suite
extern SGlobals* gGlobals;      // null before startup and after shutdown
extern void* gMessage;          // the message itself

// Traces and throws `code` as an int. Does nothing for kHostSuccess.
void ThrowAIErr(int code);
