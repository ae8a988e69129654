#pragma once

#include "HostInterface.h"

struct SGlobals;

// The one entry that the host calls, always on its main thread. The strings and the message are the
// host's and valid during the call.
extern "C" AIErr PluginMain(char* caller, char* selector, void* message);

// The barrier behind PluginMain: nothing that is thrown passes it, and the host is then told 0.
AIErr Main(char* caller, char* selector, void* message);

// Splits by caller and selector whatever isn't for "SP Interface".
AIErr HandlePluginCaller(char* caller, char* selector, void* message);

// Splits by the notifier's handle. kHostBadParameter for a null message or without globals.
AIErr GoNotifier(AINotifierMessage* message);

// The application has finished starting: nothing is to be done. kHostBadParameter for null, else 0.
AIErr HandleStartupNotifier(AINotifierMessage* message);

// The application is about to end, which is what stops the plug-in. kHostBadParameter for null,
// else 0 whatever the shutdown gave.
AIErr HandleShutdownNotifier(AINotifierMessage* message);

// From the message in hand; rewritten with every message that is taken.
extern SPBasicSuite* sSPBasic;
extern SGlobals* gGlobals;  // null before startup and after shutdown
extern void* gMessage;

// Throws a host code that isn't 0 as an int, after a trace.
void ThrowAIErr(int code);
